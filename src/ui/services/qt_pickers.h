// QtPickers is the desktop's object and group picker: it reads the objects of the kinds
// asked for through their navigators (the same lists the tree shows), narrows them by
// the caller's filter, and lets the user choose in an ObjectPickerDialog. A list whose
// rows are groups (templates in template groups, groups within groups) is opened group by
// group, so the objects inside are offered too, and the group picker offers the groups of
// every level. The answer is
// the chosen object's OIDR, "_" and its text (the value of the named field, or the
// object's own preview), or empty when nothing was chosen.
#pragma once

#include "frame/orvo_objects_service.h"
#include "frame/pickers.h"
#include "ui/services/object_picker_dialog.h"

#include <QPointer>
#include <QSet>
#include <QWidget>
#include <functional>

namespace orvo::ui {

class QtPickers : public Pickers {
public:
    explicit QtPickers(OrvoObjectsServicePtr objects, QWidget* parent = nullptr)
        : objects_(std::move(objects)), parent_(parent) {}

    QString PickObject(const QString& kinds, const QString& title, const QString& field,
                       const QString& filter) override;
    QString PickGroup(const QString& code, const QString& title) override;

    void SetParent(QWidget* parent) { parent_ = parent; }

    // The rows the picker offers for the kinds and filter, in list order.
    QList<ObjectPickerDialog::Entry> ObjectEntries(const QString& kinds, const QString& field,
                                                   const QString& filter) const;
    QList<ObjectPickerDialog::Entry> GroupEntries(const QString& code) const;
    // Whether a list row stands for a group of further rows.
    static bool IsGroupRow(const RecordsetPtr& rows);

private:
    // How deep groups within groups are opened; deeper ones are not offered.
    static constexpr int kMaxDepth = 8;

    void walk(OrvoObjectUI& navigator, const QString& kind, const QString& oid, int depth,
              QSet<QString>& seen, const QString& filter,
              const std::function<void(const RecordsetPtr&, bool)>& visit) const;
    QString run(const QString& title, const QList<ObjectPickerDialog::Entry>& entries,
                const QString& field);

    OrvoObjectsServicePtr objects_;
    QPointer<QWidget> parent_;
};

} // namespace orvo::ui
