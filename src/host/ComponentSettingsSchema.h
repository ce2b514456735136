#pragma once

#include "platform/suite/SettingsSchema.h"

namespace annotra {

/// The keys a repository's settings file may set, with their types and ranges: every
/// key of SettingsKeys.h that the component or the command line reads, in the same
/// sections, so a team keeps in version control what a user keeps in the per-user store.
/// Check boxes are booleans, the line limit 5..100, the documents kept open 1..30, the
/// scope one of the scope selector's (by name or value), and [Annotra] TeamDatabase a
/// file relative to the settings file.
const platform::suite::SettingsSchema& ComponentSettingsSchema();

}  // namespace annotra
