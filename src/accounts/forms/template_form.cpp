#include "accounts/forms/template_form.h"

#include "accounts/forms/form_support.h"
#include "accounts/forms/template_entry_form.h"
#include "frame/messages.h"
#include "frame/pickers.h"

#include <QAction>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo::accounts_forms {

namespace {

QString factorText(const Value& v) {
    return v.isNull()
               ? QString()
               : QString::number(v.toDouble(), 'g', 12).replace(QLatin1Char('.'), QLatin1Char(','));
}

QString accountCell(const RecordsetPtr& rows, const char* side) {
    const QString s = QString::fromLatin1(side);
    const QString mark = rows->Field(s + QStringLiteral("Mark")).toString();
    return rows->Field(s).toString() + mark + QLatin1Char(' ') +
           rows->Field(s + QStringLiteral("Name")).toString();
}

} // namespace

FrmBRTemplate::~FrmBRTemplate() = default;

QWidget* FrmBRTemplate::BuildWidget() {
    editor_ = std::make_unique<TemplateEditor>(GetOrvoObjectUIO());
    editor_->Load();

    root_ = new QWidget;
    auto* column = new QVBoxLayout(root_);
    auto* form = new QFormLayout;
    name_ = new QLineEdit(root_);
    name_->setObjectName(QStringLiteral("txtName"));
    comment_ = new QLineEdit(root_);
    comment_->setObjectName(QStringLiteral("txtComment"));
    group_ = new QLineEdit(root_);
    group_->setObjectName(QStringLiteral("txtGroup"));
    group_->setReadOnly(true);
    auto* groupButton = new QPushButton(QStringLiteral("Grupė"), root_);
    groupButton->setObjectName(QStringLiteral("cmdParentGroup"));
    auto* groupRow = new QHBoxLayout;
    groupRow->addWidget(group_, 1);
    groupRow->addWidget(groupButton);
    form->addRow(QStringLiteral("Pavadinimas"), name_);
    form->addRow(QStringLiteral("Komentaras"), comment_);
    form->addRow(QStringLiteral("Grupė"), groupRow);
    column->addLayout(form);

    rows_ = new QTreeWidget(root_);
    rows_->setObjectName(QStringLiteral("lvwRows"));
    rows_->setHeaderLabels({QStringLiteral("Debeto b/s"), QStringLiteral("Kredito b/s"),
                            QStringLiteral("Koeficientas")});
    rows_->setRootIsDecorated(false);
    rows_->setColumnWidth(0, 250);
    rows_->setColumnWidth(1, 250);
    root_->setMinimumWidth(680);
    rows_->setContextMenuPolicy(Qt::CustomContextMenu);
    column->addWidget(rows_, 1);

    menu_ = new QMenu(root_);
    menu_->setObjectName(QStringLiteral("mnuRows"));
    const struct {
        const char* name;
        const char* caption;
        int number;
    } entries[] = {{"mnuAdd", "Pridėti", 101},
                   {"mnuEdit", "Redaguoti", 102},
                   {"mnuDelete", "Panaikinti", 103}};
    for (const auto& e : entries) {
        QAction* action = menu_->addAction(QString::fromUtf8(e.caption));
        action->setObjectName(QString::fromLatin1(e.name));
        action->setData(e.number);
        const int number = e.number;
        QObject::connect(action, &QAction::triggered, root_,
                         [this, number]() { MenuClick(number); });
    }

    auto* buttons = new QHBoxLayout;
    write_ = new QPushButton(QStringLiteral("Įrašyti"), root_);
    write_->setObjectName(QStringLiteral("cmdWrite"));
    cancel_ = new QPushButton(QStringLiteral("Atšaukti"), root_);
    cancel_->setObjectName(QStringLiteral("cmdCancel"));
    auto* close = new QPushButton(QStringLiteral("Uždaryti"), root_);
    close->setObjectName(QStringLiteral("SSCClose"));
    buttons->addWidget(write_);
    buttons->addWidget(cancel_);
    buttons->addStretch(1);
    buttons->addWidget(close);
    column->addLayout(buttons);

    QWidget::setTabOrder(name_, comment_);
    QWidget::setTabOrder(comment_, groupButton);
    QWidget::setTabOrder(groupButton, rows_);
    QWidget::setTabOrder(rows_, write_);
    QWidget::setTabOrder(write_, cancel_);
    QWidget::setTabOrder(cancel_, close);

    auto changed = [this]() {
        if (!filling_)
            editor_->MarkChanged();
    };
    QObject::connect(name_, &QLineEdit::textChanged, root_, changed);
    QObject::connect(comment_, &QLineEdit::textChanged, root_, changed);
    QObject::connect(groupButton, &QPushButton::clicked, root_, [this]() { PickGroup(); });
    QObject::connect(
        rows_, &QTreeWidget::customContextMenuRequested, root_,
        [this](const QPoint& at) { menu_->popup(rows_->viewport()->mapToGlobal(at)); });
    QObject::connect(rows_, &QTreeWidget::itemDoubleClicked, root_, [this]() { MenuClick(102); });
    QObject::connect(write_, &QPushButton::clicked, root_, [this]() { Write(); });
    QObject::connect(cancel_, &QPushButton::clicked, root_, [this]() { Cancel(); });
    QObject::connect(close, &QPushButton::clicked, root_, [this]() { CloseForm(); });

    fill();
    return root_;
}

void FrmBRTemplate::fill() {
    filling_ = true;
    name_->setText(editor_->Name);
    comment_->setText(editor_->Comment);
    group_->setText(editor_->GroupText);
    rows_->setVisible(!editor_->IsGroup());
    fillRows();
    filling_ = false;
    root_->setWindowTitle(editor_->IsGroup() ? QStringLiteral("Šablonų grupė")
                                             : QStringLiteral("Operacijos šablonas"));
}

void FrmBRTemplate::fillRows() {
    rows_->clear();
    const RecordsetPtr rows = editor_->Rows();
    if (!rows)
        return;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
        auto* item = new QTreeWidgetItem(
            rows_, {accountCell(rows, "AccountD"), accountCell(rows, "AccountC"),
                    factorText(rows->Field(QStringLiteral("Factor")))});
        item->setData(0, Qt::UserRole, rows->Field(QStringLiteral("GUID")).toString());
    }
}

QString FrmBRTemplate::currentGuid() const {
    const QTreeWidgetItem* item = rows_->currentItem();
    return item ? item->data(0, Qt::UserRole).toString() : QString();
}

void FrmBRTemplate::editEntry(const QString& guid) {
    const OrvoFormPtr form =
        ShowFormModal(QStringLiteral("frmBRTemplateAcc"), editor_->Object(), guid);
    if (!form) {
        ShowError(QStringLiteral("Langas „frmBRTemplateAcc“ neprieinamas: veiksmo atlikti "
                                 "negalima."));
        return;
    }
    if (auto* entry = dynamic_cast<FrmBRTemplateAcc*>(form.get()); entry && entry->Written())
        editor_->MarkChanged();
    fillRows();
}

void FrmBRTemplate::MenuClick(int number) {
    if (!editor_ || editor_->IsGroup())
        return;
    switch (number) {
    case 101:
        editEntry(QString());
        break;
    case 102:
        if (!currentGuid().isEmpty())
            editEntry(currentGuid());
        break;
    case 103: {
        const QString guid = currentGuid();
        if (guid.isEmpty() || !AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
            return;
        editor_->DeleteEntry(guid);
        fillRows();
        break;
    }
    default:
        break;
    }
}

void FrmBRTemplate::PickGroup() {
    const OrvoServicesPtr s = Services();
    const PickersPtr pickers = s ? s->PickersService() : nullptr;
    if (!pickers)
        return;
    const QString picked =
        pickers->PickGroup(QStringLiteral("O0201600"), QStringLiteral("Pažymėkite norimą grupę"));
    if (editor_->TakeGroup(picked))
        group_->setText(editor_->GroupText);
}

void FrmBRTemplate::Write() {
    editor_->Name = name_->text();
    editor_->Comment = comment_->text();
    if (editor_->Save().ok())
        fill();
}

void FrmBRTemplate::Cancel() {
    editor_->Undo();
    fill();
}

bool FrmBRTemplate::CloseForm() {
    if (editor_ && editor_->Changed()) {
        const OrvoServicesPtr s = Services();
        const MessagesPtr messages = s ? s->MessagesService() : nullptr;
        if (!messages || !messages->Ask(QStringLiteral("Uždaryti be išsaugojimo?"), AppTitle()))
            return false;
    }
    CloseFormWindow(*this, root_, false);
    return true;
}

} // namespace orvo::accounts_forms
