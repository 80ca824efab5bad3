#include "accounts/forms/account_plan_form.h"

#include "accounts/account_plan_navigator.h"
#include "accounts/forms/form_support.h"
#include "core/null_readers.h"
#include "frame/messages.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_services.h"
#include "frame/pickers.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo::accounts_forms {

// Number boxes take the digits and backspace, and nothing else; a class number of 0
// or 00 holds the focus in its box.
class FrmAccountPlan::KeyFilter : public QObject {
public:
    explicit KeyFilter(FrmAccountPlan& form) : QObject(form.root_), form_(form) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        // The window closed by its frame asks as SSCClose does.
        if (watched == form_.root_ && event->type() == QEvent::Close) {
            if (!form_.closing_ && form_.editor_ && form_.editor_->Changed() && !form_.askClose()) {
                event->ignore();
                return true;
            }
            return false;
        }
        auto* box = qobject_cast<QLineEdit*>(watched);
        if (!box)
            return false;
        if (box == form_.newAcc_)
            return dragAndDrop(event);
        if (event->type() == QEvent::KeyPress) {
            auto* key = static_cast<QKeyEvent*>(event);
            // Tab moves on: it is no key of the text.
            if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab)
                return false;
            const QString text = key->text();
            const int code = key->key() == Qt::Key_Backspace ? 8
                             : text.size() == 1              ? text.at(0).unicode()
                                                             : 0;
            if (!AccountPlanEditor::AcceptsNumberKey(code))
                return true;
            if (form_.editor_)
                form_.editor_->MarkChanged();
            return false;
        }
        if (event->type() == QEvent::FocusOut && box == form_.accountClass_ &&
            AccountPlanEditor::RefusesClassNumber(box->text())) {
            QTimer::singleShot(0, box, [box]() { box->setFocus(Qt::OtherFocusReason); });
        }
        return false;
    }

private:
    // txtNewAcc takes only a dropped account, never text of its own.
    bool dragAndDrop(QEvent* event) {
        switch (event->type()) {
        case QEvent::DragEnter: {
            auto* drag = static_cast<QDragEnterEvent*>(event);
            const QString key = drag->mimeData() ? drag->mimeData()->text().trimmed() : QString();
            form_.dropKey_ = form_.acceptsDrop(key, nullptr) ? key : QString();
            if (form_.dropKey_.isEmpty()) {
                drag->ignore();
            } else {
                drag->setDropAction(Qt::CopyAction);
                drag->accept();
            }
            return true;
        }
        case QEvent::DragMove: {
            auto* drag = static_cast<QDragMoveEvent*>(event);
            const QString key = drag->mimeData() ? drag->mimeData()->text().trimmed() : QString();
            if (!form_.dropKey_.isEmpty() && key == form_.dropKey_) {
                drag->setDropAction(Qt::CopyAction);
                drag->accept();
            } else {
                drag->ignore();
            }
            return true;
        }
        case QEvent::DragLeave:
            form_.dropKey_.clear();
            return true;
        case QEvent::Drop: {
            auto* drop = static_cast<QDropEvent*>(event);
            const QString key = drop->mimeData() ? drop->mimeData()->text().trimmed() : QString();
            form_.dropKey_.clear();
            if (form_.dropNewAccount(key)) {
                drop->setDropAction(Qt::CopyAction);
                drop->accept();
            } else {
                drop->ignore();
            }
            return true;
        }
        default:
            return false;
        }
    }

    FrmAccountPlan& form_;
};

FrmAccountPlan::~FrmAccountPlan() = default;

bool FrmAccountPlan::showNewAccount() const {
    const OrvoObjectUIOPtr object = GetOrvoObjectUIO();
    const auto navigator =
        object ? std::dynamic_pointer_cast<UI0200400>(object->UI()) : std::shared_ptr<UI0200400>();
    return navigator && navigator->planMode() == QLatin1String("FULL");
}

QString FrmAccountPlan::Caption() const {
    if (!editor_)
        return FormName();
    if (editor_->IsNew())
        return editor_->PanelTitle();
    const QString number = editor_->IsClass() ? editor_->ClassAccount : editor_->Account;
    return editor_->PanelTitle() + QLatin1Char(' ') + number;
}

QWidget* FrmAccountPlan::BuildWidget() {
    editor_ = std::make_unique<AccountPlanEditor>(GetOrvoObjectUIO(), showNewAccount());
    editor_->Load();

    root_ = new QWidget;
    keys_ = new KeyFilter(*this);
    auto* column = new QVBoxLayout(root_);
    auto* menu = new QMenuBar(root_);
    menu->setObjectName(QStringLiteral("mnuMain"));
    QAction* print = menu->addAction(QStringLiteral("Spausdinti"));
    print->setObjectName(QStringLiteral("mnuPrint"));
    column->setMenuBar(menu);

    auto named = [this](auto* widget, const char* name) {
        widget->setObjectName(QString::fromLatin1(name));
        return widget;
    };

    main_ = named(new QGroupBox(root_), "SSPMain");
    auto* mainForm = new QFormLayout(main_);
    accountClass_ = named(new QLineEdit(main_), "txtAccountClass");
    nameClass_ = named(new QLineEdit(main_), "txtNameClass");
    typeClass_ = named(new QLineEdit(main_), "txtTypeClass");
    mainForm->addRow(QStringLiteral("Numeris"), accountClass_);
    mainForm->addRow(QStringLiteral("Pavadinimas"), nameClass_);
    mainForm->addRow(QStringLiteral("Tipas"), typeClass_);
    column->addWidget(main_);

    sub_ = named(new QGroupBox(root_), "SSPSubAcc");
    auto* subForm = new QFormLayout(sub_);
    parentLabel_ = named(new QLabel(sub_), "LbAccount");
    account_ = named(new QLineEdit(sub_), "txtAccount");
    name_ = named(new QLineEdit(sub_), "txtName");
    type_ = named(new QLineEdit(sub_), "txtType");
    subForm->addRow(parentLabel_);
    subForm->addRow(QStringLiteral("Numeris"), account_);
    subForm->addRow(QStringLiteral("Pavadinimas"), name_);
    subForm->addRow(QStringLiteral("Tipas"), type_);
    column->addWidget(sub_);

    roles_ = named(new QTreeWidget(root_), "LVProperties");
    roles_->setHeaderLabels({QStringLiteral("Atitikimas"), QStringLiteral("Sąskaita")});
    roles_->setRootIsDecorated(false);
    roles_->setColumnWidth(0, 300);
    root_->setMinimumWidth(560);
    column->addWidget(roles_, 1);

    auto* newRow = new QHBoxLayout;
    oldAcc_ = named(new QLabel(QStringLiteral("Atitinkanti nauja sąskaita:"), root_), "lblOldAcc");
    newAcc_ = named(new QLineEdit(root_), "txtNewAcc");
    newAcc_->setReadOnly(true);
    newAcc_->setAcceptDrops(true);
    cmdNewAcc_ = named(new QPushButton(QStringLiteral("..."), root_), "cmdNewAcc");
    cmdCleanAcc_ = named(new QPushButton(QStringLiteral("X"), root_), "cmdCleanAcc");
    newRow->addWidget(oldAcc_);
    newRow->addWidget(newAcc_, 1);
    newRow->addWidget(cmdNewAcc_);
    newRow->addWidget(cmdCleanAcc_);
    column->addLayout(newRow);

    auto* buttons = new QHBoxLayout;
    enter_ = named(new QPushButton(QStringLiteral("Įrašyti"), root_), "cmdEnter");
    cancel_ = named(new QPushButton(QStringLiteral("Atšaukti"), root_), "cmdCancel");
    new_ = named(new QPushButton(QStringLiteral("Naujas"), root_), "SSCNew");
    close_ = named(new QPushButton(QStringLiteral("Uždaryti"), root_), "SSCClose");
    buttons->addWidget(enter_);
    buttons->addWidget(cancel_);
    buttons->addStretch(1);
    buttons->addWidget(new_);
    buttons->addWidget(close_);
    column->addLayout(buttons);

    // The order the user walks with Tab: the class, the account, the roles, the buttons.
    QWidget* order[] = {accountClass_, nameClass_, typeClass_,   account_, name_,   type_, roles_,
                        newAcc_,       cmdNewAcc_, cmdCleanAcc_, enter_,   cancel_, new_,  close_};
    for (size_t i = 1; i < std::size(order); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);

    root_->installEventFilter(keys_);
    accountClass_->installEventFilter(keys_);
    account_->installEventFilter(keys_);
    newAcc_->installEventFilter(keys_);

    auto changed = [this]() {
        if (filling_)
            return;
        editor_->MarkChanged();
        refreshButtons();
    };
    QObject::connect(accountClass_, &QLineEdit::textChanged, root_, [this, changed]() {
        editor_->ClassAccount = accountClass_->text();
        changed();
    });
    QObject::connect(nameClass_, &QLineEdit::textChanged, root_, [this, changed]() {
        editor_->ClassName = nameClass_->text();
        changed();
    });
    QObject::connect(name_, &QLineEdit::textChanged, root_, [this, changed]() {
        editor_->Name = name_->text();
        changed();
    });
    QObject::connect(account_, &QLineEdit::textChanged, root_,
                     [this](const QString& text) { accountEdited(text); });
    QObject::connect(type_, &QLineEdit::textChanged, root_,
                     [this](const QString& text) { typeEdited(type_, text); });
    QObject::connect(typeClass_, &QLineEdit::textChanged, root_,
                     [this](const QString& text) { typeEdited(typeClass_, text); });
    QObject::connect(roles_, &QTreeWidget::itemChanged, root_,
                     [this](QTreeWidgetItem* item) { roleChanged(item); });
    QObject::connect(enter_, &QPushButton::clicked, root_, [this]() { Enter(); });
    QObject::connect(cancel_, &QPushButton::clicked, root_, [this]() { Cancel(); });
    QObject::connect(new_, &QPushButton::clicked, root_, [this]() { NewSameLevel(); });
    QObject::connect(close_, &QPushButton::clicked, root_, [this]() { CloseForm(); });
    QObject::connect(cmdNewAcc_, &QPushButton::clicked, root_, [this]() { pickNewAccount(); });
    QObject::connect(cmdCleanAcc_, &QPushButton::clicked, root_, [this]() { cleanNewAccount(); });
    QObject::connect(print, &QAction::triggered, root_, [this]() { Print(); });

    fill();
    return root_;
}

void FrmAccountPlan::fill() {
    filling_ = true;
    const bool isClass = editor_->IsClass();
    main_->setTitle(editor_->ClassPanelTitle());
    sub_->setTitle(editor_->PanelTitle());
    accountClass_->setText(editor_->ClassAccount);
    nameClass_->setText(editor_->ClassName);
    typeClass_->setText(editor_->ClassType);
    for (QLineEdit* box : {accountClass_, nameClass_, typeClass_})
        box->setReadOnly(!editor_->ClassEditable());
    sub_->setVisible(!isClass);
    account_->setText(editor_->Account);
    name_->setText(editor_->Name);
    type_->setText(editor_->Type);
    parentLabel_->setText(editor_->ParentLabel);
    parentLabel_->setVisible(!editor_->ParentLabel.isEmpty());
    const bool newRow = editor_->NewAccountRowVisible();
    for (QWidget* w : std::initializer_list<QWidget*>{oldAcc_, newAcc_, cmdNewAcc_, cmdCleanAcc_})
        w->setVisible(newRow);
    newAcc_->setText(editor_->NewAccountText);
    fillRoles();
    filling_ = false;
    root_->setWindowTitle(Caption());
    refreshButtons();
    // The user starts in the record's own number.
    (isClass ? accountClass_ : account_)->setFocus(Qt::OtherFocusReason);
}

void FrmAccountPlan::fillRoles() {
    const bool was = filling_;
    filling_ = true;
    roles_->clear();
    for (const AccountPlanEditor::RoleItem& role : editor_->Roles) {
        auto* item = new QTreeWidgetItem(roles_, {role.Name, role.Accounts});
        item->setData(0, Qt::UserRole, role.Key);
        item->setData(1, Qt::UserRole, role.Code);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(0, role.Checked ? Qt::Checked : Qt::Unchecked);
    }
    filling_ = was;
}

void FrmAccountPlan::refreshButtons() {
    enter_->setEnabled(editor_->EnterEnabled());
    cancel_->setEnabled(editor_->CancelEnabled());
    new_->setEnabled(editor_->NewEnabled());
}

void FrmAccountPlan::accountEdited(const QString& text) {
    if (filling_)
        return;
    bool corrected = false;
    const QString kept = editor_->PrefixedAccount(text, &corrected);
    if (corrected) {
        const QSignalBlocker block(account_);
        account_->setText(kept);
        account_->setCursorPosition(kept.size());
    }
    editor_->Account = account_->text();
    editor_->MarkChanged();
    refreshButtons();
}

void FrmAccountPlan::typeEdited(QLineEdit* box, const QString& text) {
    if (filling_)
        return;
    const QString kept = AccountPlanEditor::TypeText(text);
    if (kept != text) {
        // Set once, without echoing into this handler again.
        const QSignalBlocker block(box);
        box->setText(kept);
    }
    if (box == type_)
        editor_->Type = kept;
    else
        editor_->ClassType = kept;
    editor_->MarkChanged();
    refreshButtons();
}

void FrmAccountPlan::roleChanged(QTreeWidgetItem* item) {
    if (filling_ || !item)
        return;
    editor_->SetRoleChecked(roles_->indexOfTopLevelItem(item), item->checkState(0) == Qt::Checked);
    // The items stay (this runs inside their own signal): only their checks follow.
    filling_ = true;
    for (int i = 0; i < roles_->topLevelItemCount() && i < editor_->Roles.size(); ++i)
        roles_->topLevelItem(i)->setCheckState(0, editor_->Roles.at(i).Checked ? Qt::Checked
                                                                               : Qt::Unchecked);
    filling_ = false;
    refreshButtons();
}

void FrmAccountPlan::Enter() {
    if (!editor_)
        return;
    editor_->ClassAccount = accountClass_->text();
    editor_->ClassName = nameClass_->text();
    editor_->ClassType = typeClass_->text();
    editor_->Account = account_->text();
    editor_->Name = name_->text();
    editor_->Type = type_->text();
    const AccountPlanEditor::SaveOutcome outcome = editor_->Save();
    if (outcome.ClearClassNumber) {
        filling_ = true;
        accountClass_->clear();
        filling_ = false;
        accountClass_->setFocus(Qt::OtherFocusReason);
    }
    if (!outcome.FocusControl.isEmpty())
        if (auto* box = root_->findChild<QWidget*>(outcome.FocusControl))
            box->setFocus(Qt::OtherFocusReason);
    if (outcome.Saved)
        fill();
    refreshButtons();
}

void FrmAccountPlan::Cancel() {
    if (!editor_)
        return;
    editor_->Undo();
    fill();
}

void FrmAccountPlan::NewSameLevel() {
    if (!editor_)
        return;
    if (editor_->Changed()) {
        const OrvoServicesPtr s = Services();
        const MessagesPtr messages = s ? s->MessagesService() : nullptr;
        if (!messages || !messages->Ask(AccountPlanEditor::CloseQuestion(Caption()), AppTitle()))
            return;
    }
    editor_->NewSameLevel();
    fill();
}

bool FrmAccountPlan::askClose() {
    const OrvoServicesPtr s = Services();
    const MessagesPtr messages = s ? s->MessagesService() : nullptr;
    return messages && messages->Ask(AccountPlanEditor::CloseQuestion(Caption()), AppTitle());
}

bool FrmAccountPlan::CloseForm() {
    if (editor_ && editor_->Changed() && !askClose())
        return false;
    // Asked once: the window's own close must not ask again.
    closing_ = true;
    CloseFormWindow(*this, root_, false);
    closing_ = false;
    return true;
}

void FrmAccountPlan::Print() {
    if (!ShowFormModal(QStringLiteral("ActRepAccPlan"), nullptr, QStringLiteral("All")))
        ShowError(UI0200400::NoFormText(QStringLiteral("ActRepAccPlan")));
}

void FrmAccountPlan::pickNewAccount() {
    const OrvoServicesPtr s = Services();
    const PickersPtr pickers = s ? s->PickersService() : nullptr;
    if (!pickers)
        return;
    const QString picked = pickers->PickObject(QStringLiteral("O0200401"),
                                               QStringLiteral("Pasirinkite atitinkamą sąskaitą"),
                                               QString(), QString());
    if (picked.isEmpty() || !editor_->TakeNewAccount(picked))
        return;
    newAcc_->setText(editor_->NewAccountText);
    refreshButtons();
}

bool FrmAccountPlan::acceptsDrop(const QString& key, OrvoObjectUIOPtr* dragged) const {
    if (!editor_ || !newAcc_ || !newAcc_->isVisible() || key.size() <= 8)
        return false;
    const OrvoServicesPtr s = Services();
    const OrvoObjectsServicePtr objects = s ? s->ObjectsService() : nullptr;
    // The kind is looked at first, so that no other record is read for nothing.
    if (!objects || !editor_->AcceptsDrop(key, 0))
        return false;
    const OrvoObjectUIOPtr object = objects->GetObjectUIO(key);
    if (!object || !editor_->AcceptsDrop(key, NzLong(object->Field(QStringLiteral("GroupFlag")))))
        return false;
    if (dragged)
        *dragged = object;
    return true;
}

bool FrmAccountPlan::dropNewAccount(const QString& key) {
    OrvoObjectUIOPtr dragged;
    if (!acceptsDrop(key, &dragged) || !editor_->TakeNewAccount(key))
        return false;
    QString preview = NzString(dragged->Field(QStringLiteral("Preview")));
    if (preview.isEmpty())
        preview = dragged->Preview();
    // The box shows the number, a blank and the preview; the book's preview of an account
    // already begins with its number, which is not written twice.
    const QString account = NzString(dragged->Field(QStringLiteral("Account")));
    editor_->NewAccountText = preview.startsWith(account + QLatin1Char(' '))
                                  ? preview
                                  : account + QLatin1Char(' ') + preview;
    newAcc_->setText(editor_->NewAccountText);
    refreshButtons();
    return true;
}

void FrmAccountPlan::cleanNewAccount() {
    editor_->ClearNewAccount();
    newAcc_->setText(editor_->NewAccountText);
    refreshButtons();
}

} // namespace orvo::accounts_forms
