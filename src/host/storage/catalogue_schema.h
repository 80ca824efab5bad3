// Migration 1: what every book holds before any accounting is kept in it. The record
// sequence, the user's settings, the book's constants, users and their rights, and the
// shared catalogues with the object codes they are reached by: firms (O0000100, the
// firm that keeps the books carries MyFirmFlag), natural persons (O0001402), employees
// (O0001401), banks (O0000300), bank accounts (O0000500), currencies (O0002200) and
// their daily rates.
#pragma once

#include "host/storage/migration.h"

namespace orvo::host {

Migration CatalogueMigration();

} // namespace orvo::host
