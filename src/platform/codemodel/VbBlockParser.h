#pragma once
#include <vector>

#include "platform/codemodel/VbDeclarationParser.h"
#include "platform/codemodel/VbStatementReader.h"

namespace platform::codemodel {

/// The block structure of a VB file: which statements are declarations of which block,
/// where each block and member ends, and which statements are bodies to pass over.
/// Bodies survive what real code holds: multi-line Sub and Function lambdas (their End
/// Sub or End Function does not end the method), every kind of statement block, and a
/// missing End: a declaration keyword or modifier, which no body statement can begin
/// with, ends the member before it, and End Class (or another block's End) closes the
/// blocks left open inside it. A construct the parser does not understand so costs at
/// most that declaration.
class VbBlockParser {
 public:
  VbBlockParser(DeclarationTree& tree, const PreprocessorSymbols& symbols);

  /// Reads the whole text and adds its declarations to the tree.
  void Run();

  /// Whether `st` ends with the header of a multi-line lambda ("Sub(x)" or
  /// "Function(x) As T" with its body on the lines below).
  static bool EndsWithLambdaHeader(const VbStatement& st);

 private:
  enum class Mode { Blocks, Body, PropertyStart, LambdaTail };
  struct Frame {
    VbBlock block;
    Declaration* element;
  };

  void Dispatch(const VbStatement& st);
  void InBlocks(const VbStatement& st);
  void InEnum(const VbStatement& st);
  void InBody(const VbStatement& st);
  void InLambdaTail(const VbStatement& st);
  void StartBody(Declaration* member, VbKeyword endKeyword, uint32_t headerEnd);
  void CloseMember(uint32_t end);
  // End <keyword> at `end`: closes the innermost open block of that kind and the blocks
  // left open inside it; ignored when no such block is open.
  void CloseBlock(VbKeyword keyword, uint32_t end);

  VbStatementReader m_reader;
  VbDeclarationParser m_declarations;
  std::vector<Frame> m_frames;
  Mode m_mode = Mode::Blocks;
  Declaration* m_member = nullptr;  // the member whose body is read (none when out of place)
  VbKeyword m_memberEnd = VbKeyword::None;
  int m_lambdas = 0;                // multi-line lambdas open in the body
  uint32_t m_memberLastEnd = 0;     // end of the body's last statement
  uint32_t m_candidateEnd = 0;      // end of an End <memberEnd> taken for a lambda's end
  std::vector<Declaration*> m_tail;  // declarations whose initializer holds a multi-line lambda
  uint32_t m_lastEnd = 0;           // end of the last statement read
};

}  // namespace platform::codemodel
