#include "settlement/forms/frm_currency_exchange.h"

#include "core/null_readers.h"
#include "core/number_text.h"
#include "frame/catalogue.h"
#include "ui/widgets/qt_combo_control.h"

#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvo {

namespace {

template <typename T> T* named(T* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}

QComboBox* accountCombo(QWidget* parent, const QString& name) {
    auto* combo = named(new QComboBox(parent), name);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    return combo;
}

} // namespace

FrmCurrencyExchange::FrmCurrencyExchange()
    : ui::WidgetForm(QStringLiteral("frmCurrencyExchange")) {}

FrmCurrencyExchange::~FrmCurrencyExchange() = default;

QWidget* FrmCurrencyExchange::buildFrame(QWidget* root, Frame& frame, const char* suffix,
                                         const QString& title) {
    const QString s = QString::fromLatin1(suffix);
    auto* box = named(new QGroupBox(title, root), QStringLiteral("frame") + s);
    frame.cmbAcc = accountCombo(box, QStringLiteral("cmbAcc") + s);
    frame.cmbBankAcc = named(new QComboBox(box), QStringLiteral("cmbBankAcc") + s);
    frame.cmdClearBankAcc =
        named(new QPushButton(QStringLiteral("X"), box), QStringLiteral("cmdClearBankAcc") + s);
    frame.cmdClearBankAcc->setFixedWidth(32);
    frame.cmbCurr = named(new QComboBox(box), QStringLiteral("cmbCurr") + s);
    frame.txtRate = named(new QLineEdit(box), QStringLiteral("txtRate") + s);
    frame.txtSum = named(new QLineEdit(box), QStringLiteral("txtSum") + s);
    frame.account = std::make_unique<ui::QtComboControl>(frame.cmbAcc);
    frame.currency = std::make_unique<ui::QtComboControl>(frame.cmbCurr);

    auto* bank = new QHBoxLayout;
    bank->addWidget(frame.cmbBankAcc, 1);
    bank->addWidget(frame.cmdClearBankAcc);
    auto* form = new QFormLayout(box);
    form->addRow(QStringLiteral("Balansinė sąskaita"), frame.cmbAcc);
    form->addRow(QStringLiteral("Banko a/sąskaita"), bank);
    auto* money = new QHBoxLayout;
    money->addWidget(frame.cmbCurr);
    money->addWidget(frame.txtRate, 1);
    form->addRow(QStringLiteral("Buh. kursas"), money);
    form->addRow(QStringLiteral("Suma"), frame.txtSum);

    if (logic_->bankAccounts)
        for (logic_->bankAccounts->MoveFirst(); !logic_->bankAccounts->Eof();
             logic_->bankAccounts->MoveNext())
            frame.cmbBankAcc->addItem(
                NzString(logic_->bankAccounts->Field(QStringLiteral("Preview"))),
                NzString(logic_->bankAccounts->Field(QStringLiteral("AccOIDR"))));
    Frame* f = &frame;
    QObject::connect(frame.cmdClearBankAcc, &QPushButton::clicked, box,
                     [f]() { f->cmbBankAcc->setCurrentIndex(-1); });
    QObject::connect(frame.cmbCurr, &QComboBox::activated, box,
                     [this, f]() { currencyChosen(*f); });
    QObject::connect(frame.txtRate, &QLineEdit::editingFinished, box,
                     [f]() { f->txtRate->setText(FormatTypedNumber(f->txtRate->text(), 6)); });
    QObject::connect(frame.txtSum, &QLineEdit::editingFinished, box,
                     [f]() { f->txtSum->setText(FormatTypedNumber(f->txtSum->text(), 2)); });
    return box;
}

QWidget* FrmCurrencyExchange::BuildWidget() {
    logic_ = std::make_unique<CurrencyExchange>(GetOrvoObjectUIO());
    logic_->Open();
    auto* root = new QWidget;
    root_ = root;
    root->setWindowTitle(QStringLiteral("Valiutos pirkimas / pardavimas"));

    QWidget* debit = buildFrame(root, frameD_, "D", QStringLiteral("Debetas"));
    QWidget* credit = buildFrame(root, frameC_, "C", QStringLiteral("Kreditas"));
    auto* settings =
        named(new QGroupBox(
                  QStringLiteral("Valiutos kurso pasikeitimo įtakos balansinės sąskaitos"), root),
              QStringLiteral("frameSettings"));
    cmbAccPositive_ = accountCombo(settings, QStringLiteral("cmbAcc536"));
    cmbAccNegative_ = accountCombo(settings, QStringLiteral("cmbAcc636"));
    positive_ = std::make_unique<ui::QtComboControl>(cmbAccPositive_);
    negative_ = std::make_unique<ui::QtComboControl>(cmbAccNegative_);
    auto* settingsForm = new QFormLayout(settings);
    settingsForm->addRow(QStringLiteral("Teigiamos įtakos b/s"), cmbAccPositive_);
    settingsForm->addRow(QStringLiteral("Neigiamos įtakos b/s"), cmbAccNegative_);
    dtpDate_ = named(new QDateEdit(root), QStringLiteral("dtpDate"));
    dtpDate_->setCalendarPopup(true);
    dtpDate_->setDisplayFormat(QStringLiteral("yyyy.MM.dd"));
    cmdOK_ = named(new QPushButton(QStringLiteral("Gerai"), root), QStringLiteral("cmdOK"));
    cmdCancel_ =
        named(new QPushButton(QStringLiteral("Atšaukti"), root), QStringLiteral("cmdCancel"));

    auto* frames = new QHBoxLayout;
    frames->addWidget(debit);
    frames->addWidget(credit);
    auto* dateRow = new QFormLayout;
    dateRow->addRow(QStringLiteral("Operacijos data"), dtpDate_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK_);
    buttons->addWidget(cmdCancel_);
    auto* layout = new QVBoxLayout(root);
    layout->addLayout(dateRow);
    layout->addLayout(frames);
    layout->addWidget(settings);
    layout->addLayout(buttons);

    Catalogue::FillAccountCombo(*positive_, logic_->accounts, logic_->accountPositive);
    Catalogue::FillAccountCombo(*negative_, logic_->accounts, logic_->accountNegative);
    dtpDate_->setDate(logic_->date);
    showFrame(frameD_, logic_->debit);
    showFrame(frameC_, logic_->credit);

    QObject::connect(dtpDate_, &QDateEdit::dateChanged, root, [this](const QDate& d) {
        logic_->SetDate(d);
        Catalogue::FillCurrencyCombo(*frameD_.currency, logic_->currencyRates,
                                     frameD_.cmbCurr->currentText());
        Catalogue::FillCurrencyCombo(*frameC_.currency, logic_->currencyRates,
                                     frameC_.cmbCurr->currentText());
    });
    QObject::connect(cmdOK_, &QPushButton::clicked, root, [this]() { ok(); });
    QObject::connect(cmdCancel_, &QPushButton::clicked, root, [this]() { close(false); });
    return root;
}

void FrmCurrencyExchange::showFrame(Frame& frame, const CurrencyExchange::Side& side) {
    Catalogue::FillAccountCombo(*frame.account, logic_->accounts, side.Account);
    if (side.Account.isEmpty()) {
        frame.cmbAcc->setCurrentIndex(-1);
        frame.cmbAcc->setEditText(QString());
    }
    frame.cmbBankAcc->setCurrentIndex(frame.cmbBankAcc->findData(side.BankAccount));
    Catalogue::FillCurrencyCombo(*frame.currency, logic_->currencyRates, side.Currency);
    frame.txtRate->setText(side.RateText);
    frame.txtRate->setEnabled(side.Currency.trimmed().size() == 3);
    frame.txtSum->setText(side.SumText);
}

void FrmCurrencyExchange::currencyChosen(Frame& frame) {
    const QString code = frame.cmbCurr->currentText();
    frame.txtRate->setText(logic_->DayRateText(code));
    frame.txtRate->setEnabled(code.trimmed().size() == 3);
}

bool FrmCurrencyExchange::collectFrame(Frame& frame, CurrencyExchange::Side& side) {
    if (!Catalogue::CheckAccountInList(*frame.account, logic_->accounts, false, true))
        return false;
    side.Account = FirstWord(frame.cmbAcc->currentText());
    side.BankAccount = frame.cmbBankAcc->currentIndex() >= 0
                           ? frame.cmbBankAcc->currentData().toString()
                           : QString();
    const QString code = frame.cmbCurr->currentText();
    side.Currency = code.trimmed().isEmpty() ? QStringLiteral("   ") : code;
    side.RateText = frame.txtRate->text();
    side.SumText = frame.txtSum->text();
    return true;
}

void FrmCurrencyExchange::ok() {
    if (!collectFrame(frameD_, logic_->debit) || !collectFrame(frameC_, logic_->credit))
        return;
    if (!Catalogue::CheckAccountInList(*positive_, logic_->accounts, false, true) ||
        !Catalogue::CheckAccountInList(*negative_, logic_->accounts, false, true))
        return;
    logic_->accountPositive = FirstWord(cmbAccPositive_->currentText());
    logic_->accountNegative = FirstWord(cmbAccNegative_->currentText());
    if (logic_->Post())
        close(true);
}

void FrmCurrencyExchange::close(bool accepted) {
    if (!root_)
        return;
    if (auto* dialog = qobject_cast<QDialog*>(root_->window()); dialog && dialog != root_.data()) {
        accepted ? dialog->accept() : dialog->reject();
        return;
    }
    UnloadShowOrvoObject();
}

} // namespace orvo
