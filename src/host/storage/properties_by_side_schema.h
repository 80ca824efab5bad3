// The migration "Įrašų adresatai pagal pusę": the index by which an entry's addressee and
// reference rows are found takes the side and the addressee as well as the entry
// (BRPropertiesEntrySide on BRID, Sign, FOIDR, in place of BRPropertiesEntry on BRID).
// Every debt list and every keeping of the open items asks "the addressee of this kind on
// that side of this entry"; the index now answers it alone, without reading each row.
#pragma once

#include "host/storage/migration.h"

namespace orvo::host {

inline constexpr int kPropertiesBySideMigrationVersion = 10;

Migration PropertiesBySideMigration();

} // namespace orvo::host
