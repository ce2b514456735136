#pragma once
#include <string>

#include "platform/core/Ref.h"

namespace platform::dao {
class Database;
}

/// The temporary results database of the shared module: made on first use in a temporary
/// file with the tables "XMLAnalyzer0" and "XMLAnalyzer1" and the property "SBType",
/// handed out, emptied and released. Its routines belong to the module MGlobals; they live
/// here because the results store sits above the shared module.
namespace annotra::MGlobals {

/// The results database, created and opened on first use; none when creation failed
/// (after the message "Could not create the 'Annotra' temporary database.").
platform::Ref<platform::dao::Database> XMLAnalyzerDb();
/// Whether the results database object exists.
bool XMLAnalyzerDb_IsCreated();
/// The results database file; "" before the first XMLAnalyzerDb.
std::string XMLAnalyzerDbFile();
/// Creates the database file at `path` with its two tables and property; false when the
/// file could not be created in 5000 attempts.
bool CreateXMLAnalyzerTempDatabase(std::string& path);
/// Empties "XMLAnalyzer1" and reopens the database; errors are ignored.
void ClearXMLAnalyzerDb();
/// Drops the reference to the results database object.
void EraseXMLAnalyzerDbObject();

/// Forgets the results database object and its file path without closing or deleting
/// anything. For tests and benchmarks that run the component more than once in one
/// process.
void ForgetXMLAnalyzerDbForTesting();
/// Closes the results database when there is one (errors ignored), deletes its file and
/// forgets both: what a test or benchmark does when it has done with a run.
void DiscardXMLAnalyzerDbForTesting();

}  // namespace annotra::MGlobals
