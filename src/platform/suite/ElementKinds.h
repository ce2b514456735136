#pragma once
#include <array>

namespace platform::suite {

/// The kind names of code elements. They key the XML comment templates of the team
/// database, the required-tag list and the Type column of findings.
namespace kind {
inline constexpr const char* Class = "Class";
inline constexpr const char* Delegate = "Delegate";
inline constexpr const char* Enum = "Enum";
inline constexpr const char* Method = "Method";
inline constexpr const char* Interface = "Interface";
inline constexpr const char* Module = "Module";
inline constexpr const char* Namespace = "Namespace";
inline constexpr const char* Structure = "Structure";
inline constexpr const char* Event = "Event";
inline constexpr const char* Property = "Property";
inline constexpr const char* Field = "Field (variable, constant)";

/// Every kind, in the order of the template table.
inline constexpr std::array<const char*, 11> All = {Class,     Delegate,  Enum,  Method,   Interface, Module,
                                                    Namespace, Structure, Event, Property, Field};
}  // namespace kind

}  // namespace platform::suite
