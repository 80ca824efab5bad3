// Catalogue, the component's one shared module: every group of its routines. The
// routines are free functions of the namespace orvo::Catalogue; see each header for
// its group. The null-safe readers, rounding and the number, date and kind texts live
// in core (null_readers.h, rounding.h, number_text.h, dates.h, kind_title.h).
#pragma once

#include "frame/catalogue_accounts.h"
#include "frame/catalogue_addressees.h"
#include "frame/catalogue_currency.h"
#include "frame/catalogue_data_access.h"
#include "frame/catalogue_operations.h"
#include "frame/catalogue_recordsets.h"
#include "frame/catalogue_rights_forms.h"
