#pragma once
#include <string>
#include <string_view>

namespace platform {

/// `value`, an attribute value as written between its quotes, read as XML reads it: the
/// predefined entity references (&lt; &gt; &amp; &quot; &apos;) and character references
/// (&#60; &#x3C;) replaced by their characters (in UTF-8), and each tab, carriage return
/// and line feed written literally replaced by a blank (a CR LF pair by one). Comments are
/// not always well-formed XML, so a reference that is not well-formed (an unknown name, no
/// ";", a code point that is no character) stays as written.
std::string DecodeXmlAttributeValue(std::string_view value);

}  // namespace platform
