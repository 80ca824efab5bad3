// FormDriver works a window the way a user does, for tests and for `orvo script`: it
// finds a control by its objectName (widgets, and actions and menu items), types into
// line edits, text edits and spin boxes by real key events (select all, type, then leave
// the box so that the form's rules for leaving it run), checks check boxes and option
// buttons, chooses combo items by text or index, sets date edits, clicks buttons and
// triggers actions, and selects, checks or double-clicks the rows of a list. Every action
// runs through ModalWatch: a modal window it opens goes to the driver's ModalHandler,
// which drives that window (with a FormDriver of its own) until it closes.
//
// Nothing is thrown: an action gives a DriveResult whose Result carries the reason in
// Lithuanian when the control is missing, disabled, hidden or of the wrong kind.
#pragma once

#include "core/results.h"
#include "ui/automation/control_state.h"
#include "ui/automation/modal_watch.h"

#include <QPointer>
#include <QVariant>
#include <QWidget>

class QAbstractItemView;
class QAction;

namespace orvo::ui {

struct DriveResult {
    ResultRecord Result;
    // The objectNames of the modal windows that the action opened.
    QStringList Modals;
    // What the control shows after the action (a typed text after its rules ran).
    QString Text;
    bool ok() const { return Result.ok(); }
};

struct ReadResult {
    ResultRecord Result;
    ControlState State;
    bool ok() const { return Result.ok(); }
};

class FormDriver {
public:
    // Drives the window `root`; `formName` names it in messages (its objectName when
    // empty).
    explicit FormDriver(QWidget& root, const QString& formName = QString());

    // An open window, or a widget inside one, with that objectName; null when none is.
    // Modal windows are looked at first, the newest before the others.
    static QWidget* FindWindow(const QString& objectName);

    QWidget* Root() const { return root_; }
    QString FormName() const { return name_; }

    // What every action does with a modal window it opens; without one such a window is
    // cancelled.
    void SetModalHandler(ModalWatch::ModalHandler handler) { onModal_ = std::move(handler); }

    // The control (a widget, or an action or menu item) with that objectName, or null.
    QObject* Find(const QString& name) const;

    // Types `text` into a line edit, text edit, spin box or editable combo box.
    DriveResult SetText(const QString& name, const QString& text);
    // Checks or clears a check box; checks an option button.
    DriveResult SetChecked(const QString& name, bool checked);
    // Chooses a combo box item by its text, or by its index.
    DriveResult ChooseItem(const QString& name, const QString& text);
    DriveResult ChooseIndex(const QString& name, int index);
    DriveResult SetDate(const QString& name, const QDate& date);
    // One setter by the control's kind: a text, a check (bool), a combo item (its text,
    // or a whole number as its index), a date ("YYYY-MM-DD" or QDate into a date edit).
    DriveResult Set(const QString& name, const QVariant& value);

    // Clicks a button, triggers an action or menu item.
    DriveResult Click(const QString& name);
    // Rows of a list, counted from 0 among the top rows.
    DriveResult SelectRow(const QString& name, int row);
    DriveResult DoubleClickRow(const QString& name, int row);
    DriveResult CheckRow(const QString& name, int row, bool checked);

    ReadResult Read(const QString& name) const;
    // The objectNames of the window's named controls, in the order of the widget tree.
    QStringList ControlNames() const;

    // The texts of the failures, shared with the script ops.
    QString NotFoundText(const QString& control) const;

private:
    DriveResult fail(const QString& text) const;
    // The widget of that name, checked to be one a user could work: enabled and shown.
    QWidget* usableWidget(const QString& name, DriveResult* failure) const;
    QAbstractItemView* listOf(const QString& name, DriveResult* failure) const;
    DriveResult act(const std::function<void()>& action) const;
    DriveResult rowAction(const QString& name, int row,
                          const std::function<void(QAbstractItemView*, const QModelIndex&)>& what);

    QPointer<QWidget> root_;
    QString name_;
    ModalWatch::ModalHandler onModal_;
};

} // namespace orvo::ui
