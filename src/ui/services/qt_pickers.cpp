#include "ui/services/qt_pickers.h"

#include "core/recordset.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_object_uio.h"
#include "ui/services/dialog_driver.h"

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
        const RecordsetPtr rows =
            navigator ? navigator->GetOrvoObjectList(kind, QString(), QString()) : nullptr;
        if (!rows)
            continue;
        // A filter that cannot be read offers nothing rather than everything.
        if (!filter.trimmed().isEmpty() && !rows->SetFilter(filter).ok())
            continue;
        for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
            const QString oidr = rows->Field(QStringLiteral("OIDR")).toString();
            if (oidr.size() < 9)
                continue;
            entries.append({oidr, textOf(rows, field)});
        }
    }
    return entries;
}

QList<ObjectPickerDialog::Entry> QtPickers::GroupEntries(const QString& code) const {
    QList<ObjectPickerDialog::Entry> entries;
    if (!objects_)
        return entries;
    const std::shared_ptr<OrvoObjectUI> navigator = objects_->GetObjectUI(code.left(8));
    const RecordsetPtr rows =
        navigator ? navigator->GetOrvoObjectList(code.left(8), QString(), QString()) : nullptr;
    if (!rows)
        return entries;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
        if (rows->Field(QStringLiteral("OType")).toString().startsWith(QLatin1String("GR")))
            entries.append({rows->Field(QStringLiteral("OIDR")).toString(), textOf(rows, {})});
    return entries;
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
