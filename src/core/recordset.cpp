#include "core/recordset.h"
