#include "analysis/Problems.h"

namespace annotra {

namespace {

constexpr std::string_view kMissingBefore = "Missing <";
constexpr std::string_view kMissingAfter = "> tag";

const std::array<ProblemInfo, 9> kProblems = {{
    {ProblemId::NoComment, "AN0001", "Code elements without definition comments.", "MissingComment",
     "A definition has no comment.",
     "The definition carries no comment at all, although the options ask for one on definitions "
     "of its visibility (public or protected, or non-public). Write an XML documentation comment "
     "above it, or a plain comment where the options accept one."},
    {ProblemId::PlainComment, "AN0002", "Code elements without XML comments.", "PlainCommentWhereXmlRequired",
     "A definition has a plain comment where an XML documentation comment is required.",
     "A plain comment stands above the definition, but the options require an XML documentation "
     "comment (/// in C#, ''' in Visual Basic) on definitions of its visibility. Turn the comment "
     "into an XML documentation comment with the tags the template of its kind requires."},
    {ProblemId::MissingTag, "AN0003", "Missing <tag> tag", "MissingTag",
     "An XML documentation comment lacks a required tag, or leaves it empty.",
     "The XML comment template of the definition's kind requires the tag, and the comment does not "
     "hold it or holds it empty. For methods, delegates, events and properties a missing param tag "
     "is reported only when there are parameters, and a missing returns tag only when the type is "
     "not void."},
    {ProblemId::ParamNameAndType, "AN0004",
     "Parameter with different name and type in XML comment vs. definition.", "ParamNameAndTypeDiffer",
     "A param tag differs from the parameter at its position in name and type.",
     "The param tag at this position of the XML comment names another parameter and gives another "
     "type than the definition. The Member column names the method and the parameter. Put the param "
     "tags in the order of the parameters, with their names and types as declared."},
    {ProblemId::ParamName, "AN0005", "Parameter with different name in XML comment vs. definition.",
     "ParamNameDiffers", "A param tag names another parameter than the one at its position.",
     "The param tag at this position of the XML comment names another parameter than the "
     "definition declares there; names compare exactly, letter case included. The Member column "
     "names the method and the parameter."},
    {ProblemId::ParamType, "AN0006",
     "Parameter with different type in XML comment vs. definition (or no type specified in XML comment).",
     "ParamTypeDiffers", "A param tag gives another type than the parameter, or none.",
     "The type attribute of the param tag differs from the parameter's type as written in the "
     "definition, or the tag has no type attribute. The Member column names the method and the "
     "parameter."},
    {ProblemId::MoreParams, "AN0007", "More parameters in XML comment than in definition.",
     "MoreParamsInComment", "The XML comment documents more parameters than the definition has.",
     "The XML comment holds more param tags than the definition has parameters; no position is "
     "compared then. Remove the tags of parameters that no longer exist."},
    {ProblemId::LongUncommented, "AN0008", "Too large uncommented code block", "LongUncommentedBlock",
     "A method has a long run of lines without comments.",
     "Inside the method, more code lines than the options allow follow one another without a "
     "comment. Blank lines, lone braces and Visual Basic lines continued with \" _\" do not count. "
     "Start and End give the stretch; a comment inside it explains the code and ends the run."},
    {ProblemId::FewerParams, "AN0009", "Less parameters in XML comment than in definition.",
     "FewerParamsInComment", "The XML comment documents fewer parameters than the definition has.",
     "The XML comment holds fewer param tags than the definition has parameters; no position is "
     "compared then. Add a param tag for every parameter, in declaration order."},
}};

}  // namespace

const std::array<ProblemInfo, 9>& ProblemTable() { return kProblems; }

const ProblemInfo& Problem(ProblemId id) { return kProblems[static_cast<size_t>(id)]; }

std::string ProblemText(ProblemId id, std::string_view tag) {
  if (id != ProblemId::MissingTag) return Problem(id).text;
  std::string text(kMissingBefore);
  text += tag;
  text += kMissingAfter;
  return text;
}

const ProblemInfo* ProblemOfText(std::string_view text) {
  for (const ProblemInfo& p : kProblems)
    if (p.id != ProblemId::MissingTag && text == p.text) return &p;
  if (text.size() >= kMissingBefore.size() + kMissingAfter.size() && text.starts_with(kMissingBefore) &&
      text.ends_with(kMissingAfter)) {
    std::string_view tag = text.substr(kMissingBefore.size(), text.size() - kMissingBefore.size() - kMissingAfter.size());
    if (tag.find_first_of("<>") == std::string_view::npos) return &Problem(ProblemId::MissingTag);
  }
  return nullptr;
}

}  // namespace annotra
