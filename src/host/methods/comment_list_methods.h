// The business-object method behind the comment list window:
//   GetCommentList('<action>',<ID>,'<text>')
// carries out the action on the book's ready comments and answers with the whole list
// afterwards (ID, Name, by name). The actions:
//   ''  or 'List'   nothing is changed
//   'Add'           a new comment with the text
//   'Change'        the comment ID gets the text
//   'Delete'        the comment ID is removed
// The window replaces every apostrophe of the text by a blank before quoting it, so a
// text never ends the quoted value early. An empty text is refused for Add and Change, an
// unknown ID for Change and Delete, each with a Lithuanian message.
#pragma once

#include "core/results.h"

namespace orvo::host {

class MethodRegistry;

ResultRecord RegisterCommentListMethods(MethodRegistry& methods);

} // namespace orvo::host
