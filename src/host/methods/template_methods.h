// The business-object methods of operation templates (kind O0201600, see
// objects/template_kind.h). What each returns, and why:
//
//   DO0201600_GetOrvoObject('OIDR')      the template or group with its nested
//                                        BRTemplateAcc and BRTemplateAddr; the bare code
//                                        gives a blank record (the editor's new one).
//   DO0201600_SaveOrvoObject('OIDR')     stores the record handed in, renewing the tree
//                                        codes of it and of all below it; OIDR, ID,
//                                        LockGUID. A copy older than the stored record is
//                                        refused (the lock).
//   DO0201600_DeleteOrvoObject('OIDR')   the same as DeleteTemplateSet: the tree shows a
//                                        group with what it holds, so it goes with it.
//   DO0201600_GetOrvoObjectList('OID','From','To')  the rows under one node of the tree:
//                                        the top level for the bare code, a group's
//                                        records for O0201600<ID>; OIDR, OType ("Group"
//                                        or "Item", the icon keys), Preview (the name),
//                                        ID, ParentID, GroupFlag, Name; groups first,
//                                        then by name.
//   GetTemplateList(['GroupID'])         the rows the chooser builds its tree from:
//                                        ID, ParentCode, OwnCode, GroupFlag, Preview (the
//                                        name), AccPreview (the entries as text,
//                                        "D2410 K5000 ×1; D5000 K4492 ×0,21"), OIDR, Name.
//                                        Empty or 0: every record; a group's ID: that
//                                        group and all below it. Each parent comes before
//                                        its children, so a tree can be filled in one
//                                        pass.
//   GetTemplateAccAndAddr('ID')          the lines AddTemplate makes entries from: the
//                                        template's BRTemplateAcc rows in stored order,
//                                        ID, GUID, AccountD, AccountC, Factor, with the
//                                        line's demanded addressees nested as
//                                        RequiredAddr: Sign, FOID, FOIDR (a fixed
//                                        addressee or empty) and ShowString (the fixed
//                                        addressee's name, to be written beside it).
//   DO0201600_GetEnabledAddressee('Account'[,Sign])  FOID, Name of the addressee kinds
//                                        the account allows (the chart's one rule,
//                                        GetEnabledAddressee); with Sign 1 or -1 only
//                                        those of that side. The editor lists them as
//                                        the kinds an entry may demand.
//   AddBRTemplateSet('O0201600','Key',GroupID)  copies the set Key (a group with all it
//                                        holds, or one template with its entries and
//                                        addressees) into the group GroupID (0: the top
//                                        level); OIDR, ID of the copy. New GUIDs
//                                        throughout, so the copy shares nothing.
//   DeleteTemplateSet('OIDR' or 'ID')    removes a template with its entries, or a group
//                                        with every group and template below it; the
//                                        number of records removed.
#pragma once

#include "core/results.h"

#include <QStringList>
#include <QVector>

namespace orvo::host {

class MethodRegistry;

ResultRecord RegisterTemplateMethods(MethodRegistry& methods);

// The entries of a template as one line of text, "D2410 K5000 ×1; D5000 K4492 ×0,21".
QString TemplateEntriesText(const QStringList& debit, const QStringList& credit,
                            const QVector<double>& factors);

} // namespace orvo::host
