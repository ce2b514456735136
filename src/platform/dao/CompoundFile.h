#pragma once
#include <string>
#include <utility>
#include <vector>

namespace platform::dao {

/// One stream of a compound file: its name and its bytes.
using CompoundStream = std::pair<std::string, std::string>;

/// Writes a new compound file (the structured storage of Office 97 documents) at `path`
/// holding `streams` at its root, with `classId` (16 bytes as stored, or "") as the
/// root's class. The container is libgsf's; the file appears whole or not at all: it is
/// written under a temporary name in the same folder, synced, and only then given its
/// name, which it never takes from a file that is there.
///
/// Throws 3044 when `path` is empty or its folder does not exist, 3204 when a file (or
/// anything else) is at `path`, 3436 when the file cannot be written.
void WriteCompoundFile(const std::string& path, const std::vector<CompoundStream>& streams,
                       const std::string& classId = "");

}  // namespace platform::dao
