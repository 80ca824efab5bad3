#include "ui/services/qt_pickers.h"

#include "core/recordset.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_object_uio.h"
#include "ui/services/dialog_driver.h"

#include <QSet>

namespace orvo::ui {

namespace {

QString textOf(const RecordsetPtr& rows, const QString& field) {
    if (!field.isEmpty() && rows->HasField(field)) {
        const Value v = rows->Field(field);
        if (!v.isNull())
            return v.toString();
    }
    const Value preview = rows->Field(QStringLiteral("Preview"));
    return preview.isNull() ? rows->Field(QStringLiteral("OIDR")).toString() : preview.toString();
}

} // namespace

QList<ObjectPickerDialog::Entry>
QtPickers::ObjectEntries(const QString& kinds, const QString& field, const QString& filter) const {
    QList<ObjectPickerDialog::Entry> entries;
    if (!objects_)
        return entries;
    for (const QString& part : kinds.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QString kind = part.trimmed().left(8);
        const std::shared_ptr<OrvoObjectUI> navigator = objects_->GetObjectUI(kind);
        if (!navigator)
            continue;
        QSet<QString> seen;
        walk(*navigator, kind, kind, 0, seen, filter, [&](const RecordsetPtr& rows, bool group) {
            const QString oidr = rows->Field(QStringLiteral("OIDR")).toString();
            if (!group && oidr.size() >= 9)
                entries.append({oidr, textOf(rows, field)});
        });
    }
    return entries;
}

QList<ObjectPickerDialog::Entry> QtPickers::GroupEntries(const QString& code) const {
    QList<ObjectPickerDialog::Entry> entries;
    if (!objects_)
        return entries;
    const QString kind = code.left(8);
    const std::shared_ptr<OrvoObjectUI> navigator = objects_->GetObjectUI(kind);
    if (!navigator)
        return entries;
    QSet<QString> seen;
    walk(*navigator, kind, kind, 0, seen, QString(), [&](const RecordsetPtr& rows, bool group) {
        if (group)
            entries.append({rows->Field(QStringLiteral("OIDR")).toString(), textOf(rows, {})});
    });
    return entries;
}

bool QtPickers::IsGroupRow(const RecordsetPtr& rows) {
    const QString type = rows->Field(QStringLiteral("OType")).toString();
    return type.startsWith(QLatin1String("GR")) || type == QLatin1String("Group");
}

void QtPickers::walk(OrvoObjectUI& navigator, const QString& kind, const QString& oid, int depth,
                     QSet<QString>& seen, const QString& filter,
                     const std::function<void(const RecordsetPtr&, bool)>& visit) const {
    const RecordsetPtr rows = navigator.GetOrvoObjectList(oid, QString(), QString());
    if (!rows)
        return;
    // Groups are met unfiltered, so what lies inside them is found whatever the filter;
    // a group is opened once, however often it is met.
    QStringList groups;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
        if (!IsGroupRow(rows))
            continue;
        const QString oidr = rows->Field(QStringLiteral("OIDR")).toString();
        if (seen.contains(oidr))
            continue;
        seen.insert(oidr);
        visit(rows, true);
        if (oidr.startsWith(kind) && oidr.size() > 8)
            groups.append(oidr);
    }
    // A filter that cannot be read offers nothing rather than everything.
    if (filter.trimmed().isEmpty() || rows->SetFilter(filter).ok())
        for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
            const QString oidr = rows->Field(QStringLiteral("OIDR")).toString();
            if (IsGroupRow(rows) || seen.contains(oidr))
                continue;
            seen.insert(oidr);
            visit(rows, false);
        }
    if (depth >= kMaxDepth)
        return;
    for (const QString& group : groups)
        walk(navigator, kind, group, depth + 1, seen, filter, visit);
}

QString QtPickers::PickObject(const QString& kinds, const QString& title, const QString& field,
                              const QString& filter) {
    return run(title, ObjectEntries(kinds, field, filter), field);
}

QString QtPickers::PickGroup(const QString& code, const QString& title) {
    return run(title, GroupEntries(code), QString());
}

QString QtPickers::run(const QString& title, const QList<ObjectPickerDialog::Entry>& entries,
                       const QString& field) {
    ObjectPickerDialog dialog(title, entries, parent_);
    DialogDriver::Exec(dialog);
    const std::optional<ObjectPickerDialog::Entry> chosen = dialog.Chosen();
    if (!chosen)
        return QString();
    QString text = chosen->Text;
    // A list that does not carry the named field: the object itself is read for it.
    if (!field.isEmpty() && objects_) {
        if (const std::shared_ptr<OrvoObjectUIO> object = objects_->GetObjectUIO(chosen->OIDR)) {
            const Value v = object->Field(field);
            if (!v.isNull() && !v.toString().isEmpty())
                text = v.toString();
        }
    }
    return chosen->OIDR + QLatin1Char('_') + text;
}

} // namespace orvo::ui
