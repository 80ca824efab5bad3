// The stored kind of operation templates (O0201600): one row of BRTemplates is a
// template or a template group (GroupFlag non-zero), and its entries (BRTemplateAcc)
// and the addressees those entries demand (BRTemplateAddr) travel as two nested
// recordsets of that row. An addressee row names its entry by BRTemplateAccGUID, so the
// editor can filter one flat list by entry. LockGUID is the optimistic lock.
//
// The tree codes. OwnCode is the path of IDs from the top group down to the record
// itself, each followed by "*" ("3*" for a top group, "3*8*" for a record in it), and
// ParentCode is the parent's OwnCode (empty at the top). The chooser builds its tree
// from these two without reading ParentID, so every save renews them for the record and
// for everything below it, in the save's transaction.
#pragma once

#include "core/results.h"
#include "host/objects/object_kind.h"

#include <QVector>

namespace orvo::host {

namespace kinds {
inline const QString Template = QStringLiteral("O0201600");
} // namespace kinds

ObjectKind TemplateKind();

// "3*8*" from the parent's code "3*" and the record number 8.
QString TemplateOwnCode(const QString& parentOwnCode, qint64 id);

// The record and every record below it, each parent before its children; children in
// the order GroupFlag DESC, Name, ID. Empty with `error` set when reading fails.
QVector<qint64> TemplateSubtree(Database& db, qint64 id, QString* error);

// Renews OwnCode and ParentCode of record `id` from its stored parent, and of every
// record below it when its own code changed. Refused (777) when the parent is gone, is a
// template rather than a group, or lies below the record itself.
ResultRecord RenewTemplateCodes(Database& db, qint64 id, QString* ownCode = nullptr,
                                QString* parentCode = nullptr);

} // namespace orvo::host
