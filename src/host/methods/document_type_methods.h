// The business-object methods of the two small catalogues a contract document group is
// set up with (tables of group_debts_schema.h):
//
//   DO0001602_GetDocumentTypes(['Filter'])  rows Code, Name: the document types (object
//                                 O0001602) by name.
//   DO0001612_GetTemplateTypes(['Filter'])  rows ID, Preview, DocumentTypeCodes: the
//                                 template types (object O0001612) by name; the codes
//                                 are the document types a type serves, ";"-joined.
//   DO0201400_GetRelatedDocumentGroup('GroupID')  rows Code, Name: the document type a
//                                 contract document group posts, read from the key after
//                                 "|" in the group's Parameters; no row when the group
//                                 names none or names one that is not a stored type.
#pragma once

#include "core/results.h"

namespace orvo::host {

class MethodRegistry;

ResultRecord RegisterDocumentTypeMethods(MethodRegistry& methods);

} // namespace orvo::host
