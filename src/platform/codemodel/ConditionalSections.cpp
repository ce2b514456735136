#include "platform/codemodel/ConditionalSections.h"

namespace platform::codemodel {

void ConditionalSections::Else() {
  if (m_stack.empty() || m_stack.back().sawElse) return;
  Section& s = m_stack.back();
  s.active = s.parentActive && !s.taken;
  s.taken = true;
  s.sawElse = true;
}

void ConditionalSections::EndIf() {
  if (!m_stack.empty()) m_stack.pop_back();
}

}  // namespace platform::codemodel
