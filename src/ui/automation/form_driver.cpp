#include "ui/automation/form_driver.h"

#include "ui/automation/control_reader.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTextEdit>

namespace orvo::ui {

namespace {

void sendKey(QWidget* target, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(target, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(target, &release);
}

// The key a character is typed with; the text of the event carries the character itself.
int keyOf(QChar c) {
    if (c == QLatin1Char('\n'))
        return Qt::Key_Return;
    if (c == QLatin1Char('\t'))
        return Qt::Key_Tab;
    return static_cast<int>(c.toUpper().unicode());
}

// Gives the control the keyboard as a user's Tab would; where the window is not active
// (an offscreen test) the control is told so directly.
void enter(QWidget* control) {
    control->setFocus(Qt::TabFocusReason);
    if (!control->hasFocus()) {
        QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
        QApplication::sendEvent(control, &in);
    }
}

// Leaves the control as Tab would, so that what the form does on leaving it runs.
void leave(QWidget* control) {
    if (control->hasFocus()) {
        control->clearFocus();
        return;
    }
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(control, &out);
}

// Select all, then the text key by key (a Delete for an empty one).
void typeInto(QWidget* target, const QString& text) {
    sendKey(target, Qt::Key_A, Qt::ControlModifier, QString());
    if (text.isEmpty()) {
        sendKey(target, Qt::Key_Delete, Qt::NoModifier, QString());
        return;
    }
    for (const QChar c : text) {
        const bool special = c == QLatin1Char('\n') || c == QLatin1Char('\t');
        sendKey(target, keyOf(c), Qt::NoModifier, special ? QString() : QString(c));
    }
}

QString kindName(const QObject* o) {
    return QString::fromLatin1(o->metaObject()->className());
}

// A mouse event at `pos` of the view's viewport.
void sendMouse(QWidget* viewport, QEvent::Type type, const QPoint& pos) {
    const QPointF local(pos);
    QMouseEvent event(type, local, viewport->mapToGlobal(local), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(viewport, &event);
}

} // namespace

FormDriver::FormDriver(QWidget& root, const QString& formName)
    : root_(&root), name_(formName.isEmpty() ? root.objectName() : formName) {}

QWidget* FormDriver::FindWindow(const QString& objectName) {
    if (objectName.isEmpty())
        return nullptr;
    QList<QWidget*> windows;
    // The newest modal window first: that is the one a user is working in.
    if (QWidget* modal = QApplication::activeModalWidget())
        windows.append(modal);
    if (QWidget* popup = QApplication::activePopupWidget())
        windows.prepend(popup);
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->isVisible() && !windows.contains(w))
            windows.append(w);
    for (QWidget* w : windows) {
        if (w->objectName() == objectName)
            return w;
        if (auto* inner = w->findChild<QWidget*>(objectName))
            return inner;
    }
    return nullptr;
}

QObject* FormDriver::Find(const QString& name) const {
    if (!root_ || name.isEmpty())
        return nullptr;
    if (root_->objectName() == name)
        return root_;
    if (auto* widget = root_->findChild<QWidget*>(name))
        return widget;
    if (auto* action = root_->findChild<QAction*>(name))
        return action;
    // A menu with that name stands for the entry that opens it.
    if (auto* menu = root_->findChild<QMenu*>(name))
        return menu->menuAction();
    return nullptr;
}

QString FormDriver::NotFoundText(const QString& control) const {
    return QStringLiteral("Valdiklis „%1“ nerastas formoje „%2“.").arg(control, name_);
}

DriveResult FormDriver::fail(const QString& text) const {
    DriveResult r;
    r.Result = ResultRecord::Failure(codes::Refused, text);
    return r;
}

QWidget* FormDriver::usableWidget(const QString& name, DriveResult* failure) const {
    if (!root_) {
        *failure = fail(QStringLiteral("Forma „%1“ jau uždaryta.").arg(name_));
        return nullptr;
    }
    QObject* found = Find(name);
    auto* widget = qobject_cast<QWidget*>(found);
    if (!widget) {
        *failure = found ? fail(QStringLiteral("Valdiklis „%1“ formoje „%2“ yra meniu punktas: jį "
                                               "galima tik spustelėti.")
                                    .arg(name, name_))
                         : fail(NotFoundText(name));
        return nullptr;
    }
    if (!widget->isVisibleTo(widget->window()) || widget->isHidden()) {
        *failure = fail(QStringLiteral("Valdiklis „%1“ formoje „%2“ nematomas.").arg(name, name_));
        return nullptr;
    }
    if (!widget->isEnabled()) {
        *failure = fail(QStringLiteral("Valdiklis „%1“ formoje „%2“ neprieinamas (išjungtas).")
                            .arg(name, name_));
        return nullptr;
    }
    return widget;
}

DriveResult FormDriver::act(const std::function<void()>& action) const {
    DriveResult r;
    r.Modals = ModalWatch::Run(action, onModal_);
    return r;
}

DriveResult FormDriver::SetText(const QString& name, const QString& text) {
    DriveResult failure;
    QWidget* widget = usableWidget(name, &failure);
    if (!widget)
        return failure;
    QLineEdit* line = qobject_cast<QLineEdit*>(widget);
    if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        if (!combo->isEditable())
            return fail(QStringLiteral("Sąrašo „%1“ formoje „%2“ tekstas neįvedamas: pasirinkite "
                                       "jo punktą.")
                            .arg(name, name_));
        line = combo->lineEdit();
    }
    const bool readOnly =
        (line && line->isReadOnly()) ||
        (qobject_cast<QTextEdit*>(widget) && qobject_cast<QTextEdit*>(widget)->isReadOnly()) ||
        (qobject_cast<QPlainTextEdit*>(widget) &&
         qobject_cast<QPlainTextEdit*>(widget)->isReadOnly()) ||
        (qobject_cast<QAbstractSpinBox*>(widget) &&
         qobject_cast<QAbstractSpinBox*>(widget)->isReadOnly());
    const bool editable = line || qobject_cast<QTextEdit*>(widget) ||
                          qobject_cast<QPlainTextEdit*>(widget) ||
                          qobject_cast<QAbstractSpinBox*>(widget);
    if (!editable)
        return fail(QStringLiteral("Į valdiklį „%1“ (%2) formoje „%3“ teksto įvesti negalima.")
                        .arg(name, kindName(widget), name_));
    if (readOnly)
        return fail(
            QStringLiteral("Valdiklio „%1“ formoje „%2“ tekstas tik skaitomas.").arg(name, name_));
    QPointer<QWidget> guard(widget);
    DriveResult r = act([guard, text]() {
        if (!guard)
            return;
        enter(guard);
        if (guard)
            typeInto(guard, text);
        if (guard)
            leave(guard);
    });
    if (guard)
        r.Text = ControlReader::Read(*guard).Text;
    return r;
}

DriveResult FormDriver::SetChecked(const QString& name, bool checked) {
    DriveResult failure;
    QWidget* widget = usableWidget(name, &failure);
    if (!widget)
        return failure;
    auto* button = qobject_cast<QAbstractButton*>(widget);
    if (!button || !button->isCheckable())
        return fail(QStringLiteral("Valdiklio „%1“ (%2) formoje „%3“ pažymėti negalima.")
                        .arg(name, kindName(widget), name_));
    if (!checked && qobject_cast<QRadioButton*>(button) && button->autoExclusive() &&
        button->isChecked())
        return fail(QStringLiteral("Parinkties „%1“ formoje „%2“ nuimti negalima: pasirinkite "
                                   "kitą parinktį.")
                        .arg(name, name_));
    if (button->isChecked() == checked)
        return {};
    QPointer<QAbstractButton> guard(button);
    DriveResult r = act([guard]() {
        if (guard)
            guard->click();
    });
    if (guard)
        r.Text = guard->text();
    return r;
}

DriveResult FormDriver::ChooseIndex(const QString& name, int index) {
    DriveResult failure;
    QWidget* widget = usableWidget(name, &failure);
    if (!widget)
        return failure;
    auto* combo = qobject_cast<QComboBox*>(widget);
    if (!combo)
        return fail(
            QStringLiteral("Valdiklis „%1“ (%2) formoje „%3“ nėra išskleidžiamasis sąrašas.")
                .arg(name, kindName(widget), name_));
    if (index < 0 || index >= combo->count())
        return fail(QStringLiteral("Sąraše „%1“ formoje „%2“ nėra punkto nr. %3 (punktų: %4).")
                        .arg(name, name_)
                        .arg(index)
                        .arg(combo->count()));
    QPointer<QComboBox> guard(combo);
    // A user's choice: the current item changes, then the combo tells it was activated.
    DriveResult r = act([guard, index]() {
        if (!guard)
            return;
        enter(guard);
        guard->setCurrentIndex(index);
        if (guard)
            Q_EMIT guard->activated(index);
        if (guard)
            Q_EMIT guard->textActivated(guard->itemText(index));
        if (guard)
            leave(guard);
    });
    if (guard)
        r.Text = guard->currentText();
    return r;
}

DriveResult FormDriver::ChooseItem(const QString& name, const QString& text) {
    DriveResult failure;
    QWidget* widget = usableWidget(name, &failure);
    if (!widget)
        return failure;
    auto* combo = qobject_cast<QComboBox*>(widget);
    if (!combo)
        return fail(
            QStringLiteral("Valdiklis „%1“ (%2) formoje „%3“ nėra išskleidžiamasis sąrašas.")
                .arg(name, kindName(widget), name_));
    int index = combo->findText(text, Qt::MatchExactly);
    if (index < 0)
        index = combo->findText(text, Qt::MatchStartsWith);
    if (index < 0) {
        if (combo->isEditable())
            return SetText(name, text);
        return fail(
            QStringLiteral("Sąraše „%1“ formoje „%2“ nėra punkto „%3“.").arg(name, name_, text));
    }
    return ChooseIndex(name, index);
}

DriveResult FormDriver::SetDate(const QString& name, const QDate& date) {
    DriveResult failure;
    QWidget* widget = usableWidget(name, &failure);
    if (!widget)
        return failure;
    auto* edit = qobject_cast<QDateTimeEdit*>(widget);
    if (!edit)
        return fail(QStringLiteral("Valdiklis „%1“ (%2) formoje „%3“ nėra datos laukas.")
                        .arg(name, kindName(widget), name_));
    if (!date.isValid() || date < edit->minimumDate() || date > edit->maximumDate())
        return fail(QStringLiteral("Datos „%1“ laukas „%2“ formoje „%3“ nepriima.")
                        .arg(date.toString(QStringLiteral("yyyy-MM-dd")), name, name_));
    QPointer<QDateTimeEdit> guard(edit);
    DriveResult r = act([guard, date]() {
        if (!guard)
            return;
        enter(guard);
        guard->setDate(date);
        if (guard)
            leave(guard);
    });
    if (guard)
        r.Text = guard->text();
    return r;
}

DriveResult FormDriver::Set(const QString& name, const QVariant& value) {
    QObject* found = Find(name);
    if (!found)
        return fail(NotFoundText(name));
    if (auto* date = qobject_cast<QDateTimeEdit*>(found)) {
        Q_UNUSED(date);
        const QDate d = value.userType() == QMetaType::QDate
                            ? value.toDate()
                            : QDate::fromString(value.toString(), QStringLiteral("yyyy-MM-dd"));
        if (!d.isValid())
            return fail(QStringLiteral("Laukui „%1“ formoje „%2“ reikia datos YYYY-MM-DD.")
                            .arg(name, name_));
        return SetDate(name, d);
    }
    if (auto* combo = qobject_cast<QComboBox*>(found)) {
        Q_UNUSED(combo);
        const int type = value.userType();
        if (type == QMetaType::Int || type == QMetaType::LongLong || type == QMetaType::Double)
            return ChooseIndex(name, value.toInt());
        return ChooseItem(name, value.toString());
    }
    if (auto* button = qobject_cast<QAbstractButton*>(found)) {
        Q_UNUSED(button);
        if (value.userType() != QMetaType::Bool)
            return fail(QStringLiteral("Žymimajam valdikliui „%1“ formoje „%2“ reikia true arba "
                                       "false.")
                            .arg(name, name_));
        return SetChecked(name, value.toBool());
    }
    if (value.userType() == QMetaType::Double)
        return SetText(name, QString::number(value.toDouble(), 'g', 15));
    return SetText(name, value.toString());
}

DriveResult FormDriver::Click(const QString& name) {
    if (!root_)
        return fail(QStringLiteral("Forma „%1“ jau uždaryta.").arg(name_));
    QObject* found = Find(name);
    if (!found)
        return fail(NotFoundText(name));
    if (auto* action = qobject_cast<QAction*>(found)) {
        if (!action->isEnabled())
            return fail(QStringLiteral("Meniu punktas „%1“ formoje „%2“ neprieinamas (išjungtas).")
                            .arg(name, name_));
        if (!action->isVisible())
            return fail(
                QStringLiteral("Meniu punktas „%1“ formoje „%2“ nematomas.").arg(name, name_));
        QPointer<QAction> guard(action);
        return act([guard]() {
            if (guard)
                guard->trigger();
        });
    }
    DriveResult failure;
    QWidget* widget = usableWidget(name, &failure);
    if (!widget)
        return failure;
    auto* button = qobject_cast<QAbstractButton*>(widget);
    if (!button)
        return fail(QStringLiteral("Valdiklis „%1“ (%2) formoje „%3“ nėra mygtukas.")
                        .arg(name, kindName(widget), name_));
    QPointer<QAbstractButton> guard(button);
    return act([guard]() {
        if (guard)
            guard->click();
    });
}

QAbstractItemView* FormDriver::listOf(const QString& name, DriveResult* failure) const {
    QWidget* widget = usableWidget(name, failure);
    if (!widget)
        return nullptr;
    auto* view = qobject_cast<QAbstractItemView*>(widget);
    if (!view || !view->model())
        *failure = fail(QStringLiteral("Valdiklis „%1“ (%2) formoje „%3“ nėra sąrašas.")
                            .arg(name, kindName(widget), name_));
    return view && view->model() ? view : nullptr;
}

DriveResult
FormDriver::rowAction(const QString& name, int row,
                      const std::function<void(QAbstractItemView*, const QModelIndex&)>& what) {
    DriveResult failure;
    QAbstractItemView* view = listOf(name, &failure);
    if (!view)
        return failure;
    const int rows = view->model()->rowCount();
    if (row < 0 || row >= rows)
        return fail(QStringLiteral("Sąraše „%1“ formoje „%2“ nėra eilutės nr. %3 (eilučių: %4).")
                        .arg(name, name_)
                        .arg(row)
                        .arg(rows));
    QPointer<QAbstractItemView> guard(view);
    const QPersistentModelIndex index(view->model()->index(row, 0));
    return act([guard, index, what]() {
        if (guard && index.isValid())
            what(guard, index);
    });
}

DriveResult FormDriver::SelectRow(const QString& name, int row) {
    return rowAction(name, row, [](QAbstractItemView* view, const QModelIndex& index) {
        view->scrollTo(index);
        const QRect rect = view->visualRect(index);
        if (view->isVisible() && rect.isValid()) {
            // A real click where the row stands.
            sendMouse(view->viewport(), QEvent::MouseButtonPress, rect.center());
            if (view)
                sendMouse(view->viewport(), QEvent::MouseButtonRelease, rect.center());
            if (view->currentIndex() == index)
                return;
        }
        view->setCurrentIndex(index);
        view->selectionModel()->select(index, QItemSelectionModel::ClearAndSelect |
                                                  QItemSelectionModel::Rows);
        Q_EMIT view->clicked(index);
    });
}

DriveResult FormDriver::DoubleClickRow(const QString& name, int row) {
    return rowAction(name, row, [](QAbstractItemView* view, const QModelIndex& index) {
        QPointer<QAbstractItemView> guard(view);
        view->scrollTo(index);
        const QRect rect = view->visualRect(index);
        if (view->isVisible() && rect.isValid()) {
            QWidget* viewport = view->viewport();
            sendMouse(viewport, QEvent::MouseButtonPress, rect.center());
            if (guard)
                sendMouse(viewport, QEvent::MouseButtonRelease, rect.center());
            if (guard)
                sendMouse(viewport, QEvent::MouseButtonDblClick, rect.center());
            if (guard)
                sendMouse(viewport, QEvent::MouseButtonRelease, rect.center());
            return;
        }
        // A list not on screen: the same choice without the mouse.
        view->setCurrentIndex(index);
        view->selectionModel()->select(index, QItemSelectionModel::ClearAndSelect |
                                                  QItemSelectionModel::Rows);
        if (guard)
            Q_EMIT guard->doubleClicked(index);
        if (guard)
            Q_EMIT guard->activated(index);
    });
}

DriveResult FormDriver::CheckRow(const QString& name, int row, bool checked) {
    DriveResult failure;
    QAbstractItemView* view = listOf(name, &failure);
    if (!view)
        return failure;
    const QModelIndex first = view->model()->index(row, 0);
    // A row without a check box shows no check state at all.
    if (first.isValid() && (!(view->model()->flags(first) & Qt::ItemIsUserCheckable) ||
                            !view->model()->data(first, Qt::CheckStateRole).isValid()))
        return fail(QStringLiteral("Sąrašo „%1“ formoje „%2“ eilutės nr. %3 pažymėti negalima.")
                        .arg(name, name_)
                        .arg(row));
    return rowAction(name, row, [checked](QAbstractItemView* view, const QModelIndex& index) {
        view->model()->setData(index, checked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    });
}

ReadResult FormDriver::Read(const QString& name) const {
    ReadResult r;
    QObject* found = Find(name);
    if (!found) {
        r.Result = ResultRecord::Failure(codes::Refused, NotFoundText(name));
        return r;
    }
    r.State = ControlReader::Read(*found);
    return r;
}

QStringList FormDriver::ControlNames() const {
    QStringList names;
    if (!root_)
        return names;
    for (QObject* o : root_->findChildren<QObject*>()) {
        const QString n = o->objectName();
        if (n.isEmpty() || n.startsWith(QLatin1String("qt_")) || names.contains(n))
            continue;
        if (o->isWidgetType() || qobject_cast<QAction*>(o))
            names.append(n);
    }
    return names;
}

} // namespace orvo::ui
