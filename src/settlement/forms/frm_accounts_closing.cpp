#include "settlement/forms/frm_accounts_closing.h"

#include "core/number_text.h"
#include "frame/catalogue.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/pickers.h"
#include "settlement/forms/frm_accounts_closing_controls.h"
#include "settlement/forms/frm_accounts_closing_print.h"
#include "ui/widgets/entry_list_painter.h"

#include <QAction>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo {

namespace {

QLabel* label(QWidget* parent, const char* name, const QString& text) {
    auto* l = new QLabel(text, parent);
    if (name)
        l->setObjectName(QString::fromLatin1(name));
    return l;
}

} // namespace

FrmAccountsClosing::FrmAccountsClosing() : ui::WidgetForm(QStringLiteral("frmAccountsClosing")) {}

FrmAccountsClosing::~FrmAccountsClosing() = default;

QWidget* FrmAccountsClosing::BuildWidget() {
    closing_ = std::make_unique<AccountsClosing>(GetOrvoObjectUIO());
    auto* root = new QWidget;
    root_ = root;

    txtAcc5_ = closing_controls::Edit(root, "txtAcc5");
    txtAcc59_ = closing_controls::Edit(root, "txtAcc59");
    txtAcc6_ = closing_controls::Edit(root, "txtAcc6");
    txtAcc69_ = closing_controls::Edit(root, "txtAcc69");
    auto* cmdAcc5 = closing_controls::Button(root, "cmdAcc5", QStringLiteral("Sąskaitos:"));
    auto* cmdAcc59 = closing_controls::Button(root, "cmdAcc59", QStringLiteral("išskyrus"));
    auto* cmdAcc6 = closing_controls::Button(root, "cmdAcc6", QStringLiteral("Sąskaitos:"));
    auto* cmdAcc69 = closing_controls::Button(root, "cmdAcc69", QStringLiteral("išskyrus"));
    auto* SSClean59 = closing_controls::Button(root, "SSClean59", QStringLiteral("X"));
    auto* SSClean69 = closing_controls::Button(root, "SSClean69", QStringLiteral("X"));
    lblTotal5_ = label(root, "lblTotal5", QString());
    lblTotal6_ = label(root, "lblTotal6", QString());
    cmbAcc39_ = closing_controls::AccountBox(root, "cmbAcc39");
    cmbAcc340_ = closing_controls::AccountBox(root, "cmbAcc340");
    cmbAcc341_ = closing_controls::AccountBox(root, "cmbAcc341");
    auto* SSClean340 = closing_controls::Button(root, "SSClean340", QStringLiteral("X"));
    auto* SSClean341 = closing_controls::Button(root, "SSClean341", QStringLiteral("X"));

    auto* accounts = new QGridLayout;
    accounts->addWidget(label(root, "lblIncome", QStringLiteral("PAJAMOS")), 0, 0);
    accounts->addWidget(cmdAcc5, 0, 1);
    accounts->addWidget(txtAcc5_, 0, 2);
    accounts->addWidget(cmdAcc59, 0, 3);
    accounts->addWidget(txtAcc59_, 0, 4);
    accounts->addWidget(SSClean59, 0, 5);
    accounts->addWidget(lblTotal5_, 0, 6);
    accounts->addWidget(label(root, "lblExpense", QStringLiteral("SĄNAUDOS")), 1, 0);
    accounts->addWidget(cmdAcc6, 1, 1);
    accounts->addWidget(txtAcc6_, 1, 2);
    accounts->addWidget(cmdAcc69, 1, 3);
    accounts->addWidget(txtAcc69_, 1, 4);
    accounts->addWidget(SSClean69, 1, 5);
    accounts->addWidget(lblTotal6_, 1, 6);
    accounts->addWidget(label(root, nullptr, QStringLiteral("Suvestinė (tranzitinė) sąskaita")), 2,
                        0, 1, 2);
    accounts->addWidget(cmbAcc39_, 2, 2, 1, 3);
    accounts->addWidget(
        label(root, "lblAdvanceAccount", QStringLiteral("Nepaskirstyto pelno sąskaita")), 3, 0, 1,
        2);
    accounts->addWidget(cmbAcc340_, 3, 2, 1, 3);
    accounts->addWidget(SSClean340, 3, 5);
    accounts->addWidget(label(root, nullptr, QStringLiteral("Nepaskirstyto nuostolio sąskaita")), 4,
                        0, 1, 2);
    accounts->addWidget(cmbAcc341_, 4, 2, 1, 3);
    accounts->addWidget(SSClean341, 4, 5);

    txtOperGroup_ = closing_controls::Edit(root, "txtOperGroup");
    txtOperGroup_->setReadOnly(true);
    auto* cmdOperGroup = closing_controls::Button(root, "cmdOperGroup", QStringLiteral("..."));
    txtSerija_ = closing_controls::Edit(root, "txtSerija");
    txtNumber_ = closing_controls::Edit(root, "txtNumber");
    auto* lblNumber = closing_controls::Button(root, "lblNumber", QStringLiteral("Serija, Nr."));
    lblNumber->setFlat(true);
    dtpDate_ = closing_controls::DateBox(root, "dtpDate", QStringLiteral("yyyy.MM.dd"));
    auto* header = new QGridLayout;
    header->addWidget(label(root, nullptr, QStringLiteral("Grupė")), 0, 0);
    header->addWidget(txtOperGroup_, 0, 1);
    header->addWidget(cmdOperGroup, 0, 2);
    header->addWidget(lblNumber, 1, 0);
    auto* numbers = new QHBoxLayout;
    numbers->addWidget(txtSerija_);
    numbers->addWidget(txtNumber_);
    header->addLayout(numbers, 1, 1);
    header->addWidget(label(root, nullptr, QStringLiteral("Data")), 2, 0);
    header->addWidget(dtpDate_, 2, 1);

    lvwBRRecords_ = new QTreeWidget(root);
    lvwBRRecords_->setObjectName(QStringLiteral("lvwBRRecords"));
    ui::EntryListPainter::SetColumns(lvwBRRecords_, AccountsClosing::EntryHeaders());
    lvwBRRecords_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvwBRRecords_->setContextMenuPolicy(Qt::CustomContextMenu);
    lblStatus_ = label(root, "lblStatus", QString());

    auto* cmdGo = closing_controls::Button(root, "cmdGo", QStringLiteral("Užpildyti"));
    cmdWrite_ = closing_controls::Button(root, "cmdWrite", QStringLiteral("Įrašyti"));
    cmdPrint_ = closing_controls::Button(root, "cmdPrint", QStringLiteral("Spausdinti"));
    auto* SSCNew = closing_controls::Button(root, "SSCNew", QStringLiteral("Nauja"));
    auto* SSCClose = closing_controls::Button(root, "SSCClose", QStringLiteral("Uždaryti"));
    auto* commands = new QHBoxLayout;
    commands->addWidget(lblStatus_, 1);
    for (QPushButton* b : {cmdGo, cmdWrite_, cmdPrint_, SSCNew, SSCClose})
        commands->addWidget(b);

    auto* layout = new QVBoxLayout(root);
    layout->addLayout(accounts);
    layout->addLayout(header);
    layout->addWidget(lvwBRRecords_, 1);
    layout->addLayout(commands);
    buildMenu(root);

    closing_->Load();
    show();

    for (QLineEdit* box : {txtAcc5_, txtAcc59_, txtAcc6_, txtAcc69_, txtSerija_, txtNumber_})
        QObject::connect(box, &QLineEdit::textEdited, root, [this]() { changed(); });
    for (QComboBox* box : {cmbAcc39_, cmbAcc340_, cmbAcc341_})
        QObject::connect(box, &QComboBox::currentTextChanged, root, [this]() { changed(); });
    QObject::connect(dtpDate_, &QDateEdit::dateChanged, root, [this]() { changed(); });
    QObject::connect(cmdAcc5, &QPushButton::clicked, root, [this]() { pickAccount(txtAcc5_); });
    QObject::connect(cmdAcc59, &QPushButton::clicked, root, [this]() { pickAccount(txtAcc59_); });
    QObject::connect(cmdAcc6, &QPushButton::clicked, root, [this]() { pickAccount(txtAcc6_); });
    QObject::connect(cmdAcc69, &QPushButton::clicked, root, [this]() { pickAccount(txtAcc69_); });
    QObject::connect(SSClean59, &QPushButton::clicked, root, [this]() {
        txtAcc59_->clear();
        changed();
    });
    QObject::connect(SSClean69, &QPushButton::clicked, root, [this]() {
        txtAcc69_->clear();
        changed();
    });
    QObject::connect(SSClean340, &QPushButton::clicked, root,
                     [this]() { cmbAcc340_->setEditText(QString()); });
    QObject::connect(SSClean341, &QPushButton::clicked, root,
                     [this]() { cmbAcc341_->setEditText(QString()); });
    QObject::connect(cmdOperGroup, &QPushButton::clicked, root, [this]() { pickGroup(); });
    QObject::connect(lblNumber, &QPushButton::clicked, root, [this]() {
        closing_->RefreshAutoNumber();
        txtNumber_->setText(closing_->Number);
    });
    QObject::connect(cmdGo, &QPushButton::clicked, root, [this]() { go(); });
    QObject::connect(cmdWrite_, &QPushButton::clicked, root, [this]() { write(); });
    QObject::connect(cmdPrint_, &QPushButton::clicked, root, [this]() { print(); });
    QObject::connect(SSCNew, &QPushButton::clicked, root, [this]() {
        closing_->NewClosing();
        show();
    });
    QObject::connect(SSCClose, &QPushButton::clicked, root, [this]() { UnloadShowOrvoObject(); });
    QObject::connect(lvwBRRecords_, &QTreeWidget::itemDoubleClicked, root,
                     [this](QTreeWidgetItem* item) {
                         closing_->OpenEntry(item->data(0, Qt::UserRole).toString());
                         paintEntries();
                         cmdWrite_->setEnabled(closing_->Changed);
                     });
    QObject::connect(
        lvwBRRecords_, &QTreeWidget::customContextMenuRequested, root,
        [this](const QPoint& at) { menu_->popup(lvwBRRecords_->viewport()->mapToGlobal(at)); });
    return root;
}

void FrmAccountsClosing::buildMenu(QWidget* root) {
    menu_ = new QMenu(root);
    menu_->setObjectName(QStringLiteral("mnuEntries"));
    auto add = [this](const char* name, const QString& text) {
        QAction* a = menu_->addAction(text);
        a->setObjectName(QString::fromLatin1(name));
        return a;
    };
    QObject::connect(add("mnuBR", QStringLiteral("Įrašo kortelė")), &QAction::triggered, root,
                     [this]() {
                         const QStringList guids = selectedGuids();
                         if (guids.isEmpty())
                             return;
                         closing_->OpenEntry(guids.first());
                         paintEntries();
                     });
    QObject::connect(add("mnuBRDelete", QStringLiteral("Panaikinti įrašą")), &QAction::triggered,
                     root, [this]() {
                         if (closing_->DeleteEntries(selectedGuids()))
                             paintEntries();
                     });
    QObject::connect(add("mnuDeleteAll", QStringLiteral("Panaikinti visus įrašus")),
                     &QAction::triggered, root, [this]() {
                         if (closing_->DeleteAll())
                             paintEntries();
                     });
    QObject::connect(add("mnuProtocol", QStringLiteral("Protokolas")), &QAction::triggered, root,
                     [this]() { closing_->Object()->Methods(QStringLiteral("ShowProtocol"), {}); });
}

void FrmAccountsClosing::show() {
    filling_ = true;
    const AccountsClosing::Choices& c = closing_->Parameters;
    txtAcc5_->setText(c.Acc5);
    txtAcc59_->setText(c.Acc59);
    txtAcc6_->setText(c.Acc6);
    txtAcc69_->setText(c.Acc69);
    closing_controls::ShowAccounts(cmbAcc39_, closing_->Accounts, c.Acc39);
    closing_controls::ShowAccounts(cmbAcc340_, closing_->Accounts, c.Profit);
    closing_controls::ShowAccounts(cmbAcc341_, closing_->Accounts, c.Loss);
    txtOperGroup_->setText(closing_->GroupText);
    txtSerija_->setText(closing_->Serija);
    txtSerija_->setVisible(closing_->SeriesIndication != 0 || !closing_->Serija.isEmpty());
    txtNumber_->setText(closing_->Number);
    dtpDate_->setDate(closing_->Date);
    root_->setWindowTitle(closing_->Title);
    paintEntries();
    cmdWrite_->setEnabled(closing_->Changed);
    filling_ = false;
}

void FrmAccountsClosing::paintEntries() {
    lvwBRRecords_->clear();
    for (const AccountsClosing::EntryRow& row : closing_->Rows) {
        auto* item = new QTreeWidgetItem(lvwBRRecords_, row.Cells);
        item->setData(0, Qt::UserRole, row.GUID);
        item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    }
    lblTotal5_->setText(closing_->Total5Text);
    lblTotal6_->setText(closing_->Total6Text);
    cmdPrint_->setEnabled(!closing_->Rows.isEmpty());
}

QStringList FrmAccountsClosing::selectedGuids() const {
    QStringList guids;
    for (const QTreeWidgetItem* item : lvwBRRecords_->selectedItems())
        guids << item->data(0, Qt::UserRole).toString();
    if (guids.isEmpty() && lvwBRRecords_->currentItem())
        guids << lvwBRRecords_->currentItem()->data(0, Qt::UserRole).toString();
    return guids;
}

void FrmAccountsClosing::changed() {
    if (filling_)
        return;
    closing_->Changed = true;
    cmdWrite_->setEnabled(true);
}

void FrmAccountsClosing::collect() {
    AccountsClosing::Choices& c = closing_->Parameters;
    c.Acc5 = txtAcc5_->text().trimmed();
    c.Acc59 = txtAcc59_->text().trimmed();
    c.Acc6 = txtAcc6_->text().trimmed();
    c.Acc69 = txtAcc69_->text().trimmed();
    c.Acc39 = FirstWord(cmbAcc39_->currentText());
    c.Profit = FirstWord(cmbAcc340_->currentText());
    c.Loss = FirstWord(cmbAcc341_->currentText());
    closing_->Date = dtpDate_->date();
    closing_->Serija = txtSerija_->text();
    closing_->Number = txtNumber_->text();
}

void FrmAccountsClosing::go() {
    collect();
    lblStatus_->setText(QStringLiteral("Vyksta duomenų paruošimas ..."));
    lblStatus_->repaint();
    closing_->Fill();
    lblStatus_->setText(closing_->Status);
    paintEntries();
    changed();
}

void FrmAccountsClosing::write() {
    collect();
    if (!closing_->Write()) {
        txtNumber_->setText(closing_->Number);
        return;
    }
    show();
}

void FrmAccountsClosing::print() {
    collect();
    PrintAccountsClosing(*closing_);
}

void FrmAccountsClosing::pickAccount(QLineEdit* box) {
    const OrvoServicesPtr s = OrvoS();
    const PickersPtr pickers = s ? s->PickersService() : nullptr;
    if (!pickers)
        return;
    const QString picked = pickers->PickObject(QStringLiteral("O0200400"),
                                               QStringLiteral("Pasirinkite atitinkamą sąskaitą"),
                                               QStringLiteral("Account"), QString());
    const QString account = FirstWord(picked.section(QLatin1Char('_'), 1));
    if (account.isEmpty())
        return;
    box->setText(account);
    changed();
}

void FrmAccountsClosing::pickGroup() {
    const OrvoServicesPtr s = OrvoS();
    const PickersPtr pickers = s ? s->PickersService() : nullptr;
    if (!pickers)
        return;
    const QString answer =
        pickers->PickGroup(QStringLiteral("O0201400"), QStringLiteral("Pažymėkite norimą grupę"));
    const QString reference = answer.section(QLatin1Char('_'), 0, 0);
    if (reference.size() < 9)
        return;
    closing_->ChangeGroup(reference);
    txtOperGroup_->setText(closing_->GroupText);
    txtNumber_->setText(closing_->Number);
    changed();
}

} // namespace orvo
