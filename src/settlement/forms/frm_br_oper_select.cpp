#include "settlement/forms/frm_br_oper_select.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/today.h"
#include "frame/catalogue.h"
#include "frame/inputs.h"
#include "frame/messages.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "settlement/forms/frm_br_oper_select_change_rate.h"
#include "settlement/forms/frm_transfer_sum.h"
#include "settlement/selection_debts.h"
#include "settlement/selection_result.h"
#include "ui/services/dialog_driver.h"
#include "ui/shell/built_widget_form.h"
#include "ui/widgets/dialog_buttons.h"

#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo {

namespace {

const QString kNoCurrency = QStringLiteral("   ");

Value param(const RecordsetPtr& rs, const char* name) {
    return rs ? rs->Field(QString::fromLatin1(name)) : Value();
}

QLineEdit* edit(QWidget* parent, const char* name, bool readOnly = false) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(QString::fromLatin1(name));
    e->setReadOnly(readOnly);
    return e;
}

QRadioButton* option(QWidget* parent, const char* name, const QString& text) {
    auto* o = new QRadioButton(text, parent);
    o->setObjectName(QString::fromLatin1(name));
    return o;
}

// The trade columns: caption and field.
struct TradeColumn {
    const char* caption;
    const char* field;
    bool withBase;
};
const TradeColumn kTradeColumns[] = {{"Data", "DateD", false},
                                     {"Nr", "Number", false},
                                     {"Suma, ", "SumA", true},
                                     {"Suma valiuta", "SumCurr", false},
                                     {"Valiuta", "CurrCode", false},
                                     {"Likutis, ", "SumRest", true},
                                     {"Likutis valiuta", "SumRestCurr", false},
                                     {"", "RestCurrCode", false},
                                     {"Kursas", "CurrRate", false},
                                     {"Kurso įtaka", "RateInfluence", false},
                                     {"Apm., ", "CoverSum", true},
                                     {"Apm. valiuta", "CoverSumCurr", false},
                                     {"Informacija", "Info", false}};

// The list of companies that share a document number; the chosen one's row, or -1.
int chooseCompany(QWidget* parent, const RecordsetPtr& rows) {
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("OrvoGroupSelect"));
    dialog.setWindowTitle(QStringLiteral("Dokumento paieška"));
    auto* list = new QListWidget(&dialog);
    list->setObjectName(QStringLiteral("lvwObjects"));
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
        list->addItem(NzString(rows->Field(QStringLiteral("ClientName"))));
    list->setCurrentRow(0);
    auto* ok = new QPushButton(QStringLiteral("Gerai"), &dialog);
    ok->setObjectName(QStringLiteral("cmdOK"));
    auto* cancel = new QPushButton(QStringLiteral("Atšaukti"), &dialog);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(new QLabel(QStringLiteral("Pasirinkite įmonę"), &dialog));
    layout->addWidget(list);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);
    QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
    QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
    QObject::connect(list, &QListWidget::itemDoubleClicked, &dialog, &QDialog::accept);
    if (ui::DialogDriver::Exec(dialog) != QDialog::Accepted)
        return -1;
    return list->currentRow();
}

} // namespace

FrmBROperSelect::FrmBROperSelect() = default;
FrmBROperSelect::~FrmBROperSelect() = default;

QString FrmBROperSelect::CallerKind() const {
    const OrvoObjectUIOPtr op = GetOrvoObjectUIO();
    return op ? op->OType() : QString();
}

void FrmBROperSelect::Show(bool) {
    // The window is always modal: its caller waits for the result.
    cancelled_ = true;
    result_.reset();
    window_ = std::make_shared<ui::BuiltWidgetForm>(QStringLiteral("frmBROperSelect"),
                                                    [this]() { return build(); });
    window_->SetOrvoObjectUIO(GetOrvoObjectUIO());
    window_->Show(true);
    window_.reset();
}

void FrmBROperSelect::UnloadShowOrvoObject() {
    close(false);
}

void FrmBROperSelect::close(bool accepted) {
    if (!root_)
        return;
    if (auto* dialog = qobject_cast<QDialog*>(root_->window()))
        accepted ? dialog->accept() : dialog->reject();
}

int FrmBROperSelect::side() const {
    return optDeb_ && optDeb_->isChecked() ? 1 : -1;
}

int FrmBROperSelect::currentIndex() const {
    if (!lvwBROpers_ || !lvwBROpers_->currentItem())
        return -1;
    return lvwBROpers_->indexOfTopLevelItem(lvwBROpers_->currentItem());
}

void FrmBROperSelect::readParameters() {
    if (parameters_)
        parameters_->MoveFirst();
    foidr_ = NzString(param(parameters_, "FOIDR"));
    savedFoidr_ = foidr_;
    savedComment_ = NzString(param(parameters_, "Comment"));
    const QDate date = NzDate(param(parameters_, "DateD"), Today());
    const Value rateDate = param(parameters_, "CurrRateDate");
    rateDate_ = NzDate(rateDate, date);
    SelectionPayment payment;
    payment.Code = NzString(param(parameters_, "PaymentCurrCode"));
    // The base currency named by its code is no foreign payment.
    if (payment.Code.trimmed().isEmpty() || payment.Code == NzString(Catalogue::GetBaseCurrency()))
        payment.Code = kNoCurrency;
    payment.Rate = NzDouble(param(parameters_, "PaymentCurrRate"));
    payment.Sum = NzDouble(param(parameters_, "PaymentSum"));
    payment.SumCurr = NzDouble(param(parameters_, "PaymentSumCurr"));
    // A payment in a currency is spread in that currency.
    if (!payment.Code.trimmed().isEmpty() && payment.SumCurr > 0) {
        payment.Sum = payment.SumCurr;
        payment.SumCurr = 0;
    }
    list_.SetPayment(payment);
    list_.SetBaseCurrency(NzString(Catalogue::GetBaseCurrency()));
    list_.SetBaseIsEuro(Catalogue::BaseIsEuro());
}

QWidget* FrmBROperSelect::build() {
    readParameters();
    const OrvoObjectUIOPtr op = GetOrvoObjectUIO();
    auto* root = new QWidget;
    root_ = root;
    root->setWindowTitle(QStringLiteral(" Operacijų pasirinkimas"));
    root->resize(900, 560);

    auto* frameSettings = new QGroupBox(QStringLiteral("Nustatymai"), root);
    frameSettings->setObjectName(QStringLiteral("frameSettings"));
    txtAddr_ = edit(frameSettings, "txtAddr", true);
    cmbAcc_ = new QComboBox(frameSettings);
    cmbAcc_->setObjectName(QStringLiteral("cmbAcc"));
    cmbAcc_->setEditable(true);
    cmbAcc_->setInsertPolicy(QComboBox::NoInsert);
    accCombo_ = std::make_unique<ui::QtComboControl>(cmbAcc_);
    optDeb_ = option(frameSettings, "optDeb", QStringLiteral("Debetas"));
    optCred_ = option(frameSettings, "optCred", QStringLiteral("Kreditas"));
    auto* sides = new QButtonGroup(frameSettings);
    sides->addButton(optDeb_);
    sides->addButton(optCred_);
    txtOperGroup_ = edit(frameSettings, "txtOperGroup");
    chkByFirmChildrens_ = new QCheckBox(QStringLiteral("Su įmonės filialais"), frameSettings);
    chkByFirmChildrens_->setObjectName(QStringLiteral("chkByFirmChildrens"));
    txtCurrCode_ = edit(frameSettings, "txtCurrCode", true);
    txtRate_ = edit(frameSettings, "txtRate", true);
    txtRateDate_ = edit(frameSettings, "txtRateDate", true);
    dtpDate_ = new QDateEdit(frameSettings);
    dtpDate_->setObjectName(QStringLiteral("dtpDate"));
    dtpDate_->setCalendarPopup(true);
    dtpDate_->setDisplayFormat(QStringLiteral("yyyy.MM.dd"));
    auto* settings = new QGridLayout(frameSettings);
    settings->addWidget(new QLabel(QStringLiteral("Adresatas"), frameSettings), 0, 0);
    settings->addWidget(txtAddr_, 0, 1, 1, 3);
    settings->addWidget(new QLabel(QStringLiteral("Sąskaita"), frameSettings), 1, 0);
    settings->addWidget(cmbAcc_, 1, 1);
    settings->addWidget(optDeb_, 1, 2);
    settings->addWidget(optCred_, 1, 3);
    settings->addWidget(new QLabel(QStringLiteral("Grupė"), frameSettings), 2, 0);
    settings->addWidget(txtOperGroup_, 2, 1);
    settings->addWidget(chkByFirmChildrens_, 2, 2, 1, 2);
    settings->addWidget(new QLabel(QStringLiteral("Skolos valiuta"), frameSettings), 3, 0);
    settings->addWidget(txtCurrCode_, 3, 1);
    settings->addWidget(new QLabel(QStringLiteral("Kursas"), frameSettings), 3, 2);
    settings->addWidget(txtRate_, 3, 3);
    settings->addWidget(new QLabel(QStringLiteral("Valiutų kursų data"), frameSettings), 4, 0);
    settings->addWidget(txtRateDate_, 4, 1);
    settings->addWidget(new QLabel(QStringLiteral("Data"), frameSettings), 4, 2);
    settings->addWidget(dtpDate_, 4, 3);

    optDebtOpers_ = option(root, "optDebtOpers", QStringLiteral("Operacijos pagal nustatymus"));
    optTradeDocOpers_ =
        option(root, "optTradeDocOpers",
               QStringLiteral("Prekybos užsakymo ir pasiūlymo operacijos nuo datos"));
    auto* sources = new QButtonGroup(root);
    sources->addButton(optDebtOpers_);
    sources->addButton(optTradeDocOpers_);
    optDebtOpers_->setChecked(true);
    // The payment selection lists debts only.
    optTradeDocOpers_->setVisible(CallerKind() != SelectionResult::PaymentKind);

    lvwBROpers_ = new QTreeWidget(root);
    lvwBROpers_->setObjectName(QStringLiteral("lvwBROpers"));
    lvwBROpers_->setRootIsDecorated(false);
    lvwBROpers_->setContextMenuPolicy(Qt::ActionsContextMenu);

    auto* mnuFind = new QAction(QStringLiteral("Įmonės paieška pagal dokumento numerį"), root);
    mnuFind->setObjectName(QStringLiteral("mnuFind"));
    auto* mnuChangeCurrencyRate =
        new QAction(QStringLiteral("Pasirinkto įrašo valiutos kurso pakeitimas"), root);
    mnuChangeCurrencyRate->setObjectName(QStringLiteral("mnuChangeCurrencyRate"));
    lvwBROpers_->addAction(mnuFind);
    lvwBROpers_->addAction(mnuChangeCurrencyRate);

    txtSkolaLt_ = edit(root, "txtSkolaLt", true);
    txtPaymentLt_ = edit(root, "txtPaymentLt", true);
    txtPaymentCurr_ = edit(root, "txtPaymentCurr", true);
    auto* totals = new QHBoxLayout;
    totals->addWidget(new QLabel(QStringLiteral("Likučių suma"), root));
    totals->addWidget(txtSkolaLt_);
    totals->addWidget(new QLabel(QStringLiteral("Pasirinkta suma"), root));
    totals->addWidget(txtPaymentLt_);
    totals->addWidget(txtPaymentCurr_);

    const ui::DialogButtons row = ui::DialogButtons::Make(root);
    QPushButton* ok = row.Ok;
    QPushButton* cancelButton = row.Cancel;
    QHBoxLayout* buttons = row.Row;

    auto* sourceRow = new QHBoxLayout;
    sourceRow->addWidget(optDebtOpers_);
    sourceRow->addWidget(optTradeDocOpers_);
    sourceRow->addStretch();
    auto* layout = new QVBoxLayout(root);
    layout->addWidget(frameSettings);
    layout->addLayout(sourceRow);
    layout->addWidget(lvwBROpers_, 1);
    layout->addLayout(totals);
    layout->addLayout(buttons);

    // The settings the caller opened the window on.
    loading_ = true;
    const QString accountD = NzString(param(parameters_, "AccountD"));
    const QString accountC = NzString(param(parameters_, "AccountC"));
    DictionaryPtr accounts = Catalogue::AccountList(op);
    Catalogue::FillAccountCombo(*accCombo_, accounts, accountD.isEmpty() ? accountC : accountD);
    if (cmbAcc_->currentText().isEmpty())
        cmbAcc_->setEditText(accountD.isEmpty() ? accountC : accountD);
    (accountD.isEmpty() ? optCred_ : optDeb_)->setChecked(true);
    addresseeName_.clear();
    txtAddr_->setText(foidr_);
    if (const RecordsetPtr br = op ? op->Field(QStringLiteral("BR")).toRecordset() : nullptr) {
        // The addressee's text as the operation's entries carry it.
        for (br->MoveFirst(); !br->Eof() && addresseeName_.isEmpty(); br->MoveNext()) {
            const RecordsetPtr props = br->Field(QStringLiteral("BRProperties")).toRecordset();
            for (props ? props->MoveFirst() : void(); props && !props->Eof(); props->MoveNext())
                if (NzString(props->Field(QStringLiteral("FOIDR"))) == foidr_)
                    addresseeName_ = NzString(props->Field(QStringLiteral("ShowString")));
        }
    }
    if (addresseeName_.isEmpty() && foidr_.size() >= 9 && op) {
        // Else the text that the book's entries of the account give the addressee.
        const ValueResult props =
            op->Properties(QStringLiteral("BRPropertiesByAcc"),
                           QStringLiteral("'") + FirstWord(cmbAcc_->currentText()) +
                               QStringLiteral("','") + foidr_ + QStringLiteral("',0"));
        const RecordsetPtr rows = props.Code == 0 ? props.Value.toRecordset() : nullptr;
        if (rows && rows->RecordCount() > 0) {
            rows->MoveFirst();
            if (NzString(rows->Field(QStringLiteral("FOIDR"))) == foidr_)
                addresseeName_ = NzString(rows->Field(QStringLiteral("ShowString")));
        }
    }
    if (!addresseeName_.isEmpty())
        txtAddr_->setText(addresseeName_);
    txtOperGroup_->setText(op ? QString::number(NzLong(op->Field(QStringLiteral("BROperGroupID"))))
                              : QString());
    dtpDate_->setDate(NzDate(param(parameters_, "DateD"), Today()));
    txtCurrCode_->setText(list_.Payment().Code);
    // Under a euro base a rate is shown as foreign units per euro.
    const double payRate = list_.Payment().Rate;
    const double shownRate = payRate > 0 && Catalogue::BaseIsEuro() ? 1.0 / payRate : payRate;
    txtRate_->setText(shownRate > 0 ? FormatNumberLt(shownRate, 9, false) : QString());
    txtRateDate_->setText(DateParam(rateDate_));
    const DictionaryPtr acc536 = Catalogue::PresetAccountsByCode(op, QStringLiteral("536"));
    const DictionaryPtr acc636 = Catalogue::PresetAccountsByCode(op, QStringLiteral("636"));
    list_.SetRoleAccounts(acc536->Count() > 0 ? acc536->Keys().first() : QString(),
                          acc636->Count() > 0 ? acc636->Keys().first() : QString());
    loading_ = false;
    if (list_.Acc536().isEmpty() || list_.Acc636().isEmpty())
        ShowWarning(QStringLiteral(
            "Sąskaitų žinyne nepažymėta valiutos kursų pasikeitimo įtakos sąskaita!"));

    refill();

    auto refillNow = [this]() {
        if (!loading_)
            refill();
    };
    QObject::connect(cmbAcc_, &QComboBox::activated, root, refillNow);
    QObject::connect(cmbAcc_->lineEdit(), &QLineEdit::editingFinished, root, refillNow);
    QObject::connect(optDeb_, &QRadioButton::toggled, root, [refillNow](bool on) {
        if (on)
            refillNow();
    });
    QObject::connect(optCred_, &QRadioButton::toggled, root, [refillNow](bool on) {
        if (on)
            refillNow();
    });
    QObject::connect(chkByFirmChildrens_, &QCheckBox::toggled, root, refillNow);
    QObject::connect(dtpDate_, &QDateEdit::dateChanged, root, refillNow);
    QObject::connect(optTradeDocOpers_, &QRadioButton::toggled, root, refillNow);
    QObject::connect(lvwBROpers_, &QTreeWidget::itemChanged, root,
                     [this](QTreeWidgetItem* item, int column) { itemChanged(item, column); });
    QObject::connect(lvwBROpers_, &QTreeWidget::itemDoubleClicked, root,
                     [this](QTreeWidgetItem* item, int) {
                         if (!tradeMode_)
                             enterSum(lvwBROpers_->indexOfTopLevelItem(item));
                     });
    QObject::connect(mnuFind, &QAction::triggered, root, [this]() { findByNumber(); });
    QObject::connect(mnuChangeCurrencyRate, &QAction::triggered, root, [this]() { changeRate(); });
    QObject::connect(ok, &QPushButton::clicked, root, [this]() { accept(); });
    QObject::connect(cancelButton, &QPushButton::clicked, root, [this]() { cancel(); });
    return root;
}

void FrmBROperSelect::refill() {
    tradeMode_ = optTradeDocOpers_->isChecked();
    reported_ = Dictionary::Create();
    if (tradeMode_)
        fillTrade();
    else
        fillDebts();
    showTotals();
}

void FrmBROperSelect::fillDebts() {
    const OrvoObjectUIOPtr op = GetOrvoObjectUIO();
    loading_ = true;
    lvwBROpers_->clear();
    const QString base = NzString(Catalogue::GetBaseCurrency());
    QStringList headers{QStringLiteral("Data"),
                        QStringLiteral("Nr"),
                        QStringLiteral("Likutis, ") + base,
                        QStringLiteral("Likutis valiuta"),
                        QStringLiteral("Valiuta"),
                        QStringLiteral("Apm., ") + base,
                        QStringLiteral("Apm. valiuta"),
                        QStringLiteral("Valiuta"),
                        QStringLiteral("Kursas"),
                        QStringLiteral("Kurso įtaka"),
                        QStringLiteral("Apm., ") + list_.Payment().Code.trimmed()};
    lvwBROpers_->setHeaderLabels(headers);
    lvwBROpers_->setColumnHidden(SelectionRow::CoverSumCurr, !list_.HasCoverCell());
    list_.SetSide(side());
    DebtsRequest request;
    request.Account = FirstWord(cmbAcc_->currentText());
    request.Date = dtpDate_->date();
    request.Addressee = foidr_;
    // The debts that an entry on this side settles stand on the other side.
    request.Sign = -side();
    request.WithBranches = chkByFirmChildrens_->isChecked();
    const ValueResult read = SelectionDebts::Read(op, request);
    const RecordsetPtr debts = read.Code == 0 ? read.Value.toRecordset() : nullptr;
    if (debts)
        SelectionDebts::Revalue(debts, Catalogue::CurrencyListFor(op, rateDate_, false));
    list_.Fill(debts);
    for (int i = 0; i < list_.Rows().size(); ++i) {
        auto* item = new QTreeWidgetItem(lvwBROpers_);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        mirror(i);
    }
    loading_ = false;
}

void FrmBROperSelect::fillTrade() {
    const OrvoObjectUIOPtr op = GetOrvoObjectUIO();
    loading_ = true;
    lvwBROpers_->clear();
    const QString base = NzString(Catalogue::GetBaseCurrency());
    QStringList headers;
    for (const TradeColumn& c : kTradeColumns)
        headers << QString::fromUtf8(c.caption) + (c.withBase ? base : QString());
    lvwBROpers_->setHeaderLabels(headers);
    for (int c = 0; c < headers.size(); ++c)
        lvwBROpers_->setColumnHidden(c, false);
    trade_ = Recordset::Create();
    const QString text = QStringLiteral("'") + foidr_ + QStringLiteral("','") +
                         DateParam(dtpDate_->date()) + QStringLiteral("'");
    for (const QString& name : {QStringLiteral("Order_BROpers"), QStringLiteral("Offer_BROpers")}) {
        const ValueResult r = op ? op->Properties(name, text) : ValueResult();
        const RecordsetPtr rows = r.Code == 0 ? r.Value.toRecordset() : nullptr;
        if (!rows || rows->RecordCount() == 0)
            continue;
        auto* group = new QTreeWidgetItem(lvwBROpers_);
        group->setText(0, name == QLatin1String("Order_BROpers")
                              ? QStringLiteral("Prekybos užsakymo operacijos nuo datos")
                              : QStringLiteral("Prekybos pasiūlymo operacijos nuo datos"));
        group->setFirstColumnSpanned(true);
        if (trade_->FieldCount() == 0)
            trade_ = rows->CloneStructure();
        for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
            auto* item = new QTreeWidgetItem(lvwBROpers_);
            item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
            item->setCheckState(0, Qt::Unchecked);
            item->setData(0, Qt::UserRole, rows->Field(QStringLiteral("OIDR")).toString());
            for (int c = 0; c < int(std::size(kTradeColumns)); ++c) {
                const Value v = rows->Field(QString::fromLatin1(kTradeColumns[c].field));
                item->setText(c, v.kind() == Value::Kind::Double ? FormatAmount(v.toDouble())
                                 : v.kind() == Value::Kind::Date
                                     ? v.toDate().toString(QStringLiteral("yyyy.MM.dd"))
                                     : NzString(v));
            }
            trade_->AddNew();
            for (int f = 0; f < rows->FieldCount() && f < trade_->FieldCount(); ++f)
                trade_->SetField(f, rows->Field(f));
            trade_->Update();
        }
    }
    loading_ = false;
}

void FrmBROperSelect::mirror(int index) {
    QTreeWidgetItem* item = lvwBROpers_->topLevelItem(index);
    if (!item || index >= list_.Rows().size())
        return;
    const bool wasLoading = loading_;
    loading_ = true;
    const SelectionRow& row = list_.Rows().at(index);
    item->setText(0, row.Text);
    item->setData(0, Qt::UserRole, row.Key);
    for (int c = 1; c <= SelectionRow::CellCount; ++c) {
        const SelectionCell& cell = row.At(c);
        item->setText(c, cell.Text);
        item->setData(c, Qt::UserRole, cell.Tag.toString());
        const int bgr = cell.Color;
        item->setForeground(c, QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF));
        if (c != SelectionRow::Nr)
            item->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
    }
    item->setCheckState(0, row.Checked ? Qt::Checked : Qt::Unchecked);
    loading_ = wasLoading;
}

void FrmBROperSelect::showTotals() {
    if (tradeMode_) {
        txtSkolaLt_->clear();
        txtPaymentLt_->clear();
        txtPaymentCurr_->clear();
        return;
    }
    txtSkolaLt_->setText(FormatAmount(list_.TotalBalance()).trimmed());
    txtPaymentLt_->setText(FormatAmount(list_.TotalPayment()).trimmed());
    txtPaymentCurr_->setText(FormatAmount(list_.TotalPaymentCurr()).trimmed());
}

void FrmBROperSelect::itemChanged(QTreeWidgetItem* item, int column) {
    if (loading_ || column != 0 || tradeMode_)
        return;
    const int index = lvwBROpers_->indexOfTopLevelItem(item);
    if (index < 0 || index >= list_.Rows().size())
        return;
    const bool wanted = item->checkState(0) == Qt::Checked;
    if (wanted == list_.Rows().at(index).Checked)
        return;
    if (wanted)
        list_.Check(index, reported_);
    else
        list_.Uncheck(index);
    mirror(index);
    showTotals();
}

void FrmBROperSelect::enterSum(int index) {
    if (index < 0 || index >= list_.Rows().size())
        return;
    auto dialog = std::make_shared<FrmTransferSum>();
    dialog->SetOrvoObjectUIO(GetOrvoObjectUIO());
    dialog->SetInput(list_.SumEntry(index));
    dialog->Show(true);
    if (dialog->Cancelled())
        return;
    list_.EnterSum(index, dialog->NewBase(), dialog->NewCurr());
    mirror(index);
    showTotals();
}

void FrmBROperSelect::changeRate() {
    const int index = currentIndex();
    if (tradeMode_ || index < 0 || index >= list_.Rows().size())
        return;
    const SelectionRow& row = list_.Rows().at(index);
    if (!row.HasCurrency())
        return;
    auto dialog = std::make_shared<FrmBROperSelectChangeRate>();
    dialog->SetOrvoObjectUIO(GetOrvoObjectUIO());
    dialog->SetCurrency(row.CurrencyCode(), rateDate_);
    dialog->Show(true);
    if (dialog->Cancelled())
        return;
    list_.ChangeRate(index, dialog->Rate());
    mirror(index);
    showTotals();
}

void FrmBROperSelect::findByNumber() {
    const OrvoServicesPtr services = OrvoS();
    const InputsPtr inputs = services ? services->InputsService() : nullptr;
    const OrvoObjectUIOPtr op = GetOrvoObjectUIO();
    if (!inputs || !op || !op->BO())
        return;
    const std::optional<QString> number =
        inputs->InputBox(QStringLiteral("Dokumento numeris:"), QStringLiteral("Dokumento paieška"));
    if (!number || number->trimmed().isEmpty())
        return;
    const BOResult r =
        op->BO()->Call(QStringLiteral("DO0201500_GetBROpersByNumber"),
                       QStringLiteral("'") + number->trimmed() + QStringLiteral("',") +
                           QString::number(NumberFromText(txtOperGroup_->text())));
    if (r.Code != 0) {
        ShowError(r.Text);
        return;
    }
    const RecordsetPtr rows = r.Data.toRecordset();
    if (!rows || rows->RecordCount() == 0)
        return;
    rows->MoveFirst();
    if (rows->RecordCount() > 1) {
        const int chosen = chooseCompany(root_, rows);
        if (chosen < 0)
            return;
        rows->SetAbsolutePosition(chosen + 1);
    }
    foidr_ = NzString(rows->Field(QStringLiteral("FOIDR")));
    addresseeName_ = NzString(rows->Field(QStringLiteral("ClientName")));
    txtAddr_->setText(addresseeName_);
    if (parameters_) {
        parameters_->SetField(QStringLiteral("FOIDR"), Value(foidr_));
        parameters_->Update();
    }
    refill();
}

void FrmBROperSelect::accept() {
    SelectionResultContext context;
    context.CallerKind = CallerKind();
    context.Addressee = foidr_;
    context.AddresseeName = addresseeName_;
    if (tradeMode_) {
        result_ = Recordset::Create(SelectionResult::Fields(context.CallerKind));
        for (int i = 0; i < lvwBROpers_->topLevelItemCount(); ++i) {
            QTreeWidgetItem* item = lvwBROpers_->topLevelItem(i);
            if (item->checkState(0) != Qt::Checked)
                continue;
            const QString key = item->data(0, Qt::UserRole).toString();
            for (trade_->MoveFirst(); !trade_->Eof(); trade_->MoveNext()) {
                if (NzString(trade_->Field(QStringLiteral("OIDR"))) != key)
                    continue;
                result_->AddNew();
                result_->SetField(QStringLiteral("OIDR"), Value(key));
                result_->SetField(QStringLiteral("FOIDR"), Value(foidr_));
                result_->SetField(QStringLiteral("DateD"), trade_->Field(QStringLiteral("DateD")));
                result_->SetField(QStringLiteral("Number"),
                                  trade_->Field(QStringLiteral("Number")));
                result_->SetField(QStringLiteral("FullSum"), trade_->Field(QStringLiteral("SumA")));
                result_->SetField(QStringLiteral("FullSumCurr"),
                                  trade_->Field(QStringLiteral("SumCurr")));
                result_->SetField(QStringLiteral("RestSum"),
                                  trade_->Field(QStringLiteral("SumRest")));
                result_->SetField(QStringLiteral("RestSumCurr"),
                                  trade_->Field(QStringLiteral("SumRestCurr")));
                result_->SetField(QStringLiteral("PaymentSum"),
                                  trade_->Field(QStringLiteral("SumRest")));
                result_->SetField(QStringLiteral("DebtCurrCode"),
                                  trade_->Field(QStringLiteral("CurrCode")));
                result_->SetField(QStringLiteral("DebtCurrRate"),
                                  trade_->Field(QStringLiteral("CurrRate")));
                result_->SetField(QStringLiteral("AddrOIDR"), Value(foidr_));
                result_->SetField(QStringLiteral("AddrName"), Value(addresseeName_));
                result_->SetField(QStringLiteral("Acc536"), Value(list_.Acc536()));
                result_->SetField(QStringLiteral("Acc636"), Value(list_.Acc636()));
                result_->Update();
                break;
            }
        }
        result_->MoveFirst();
    } else {
        result_ = SelectionResult::Build(list_, context, currentIndex());
    }
    cancelled_ = false;
    close(true);
}

void FrmBROperSelect::cancel() {
    cancelled_ = true;
    result_.reset();
    if (parameters_) {
        parameters_->SetField(QStringLiteral("FOIDR"), Value(savedFoidr_));
        parameters_->SetField(QStringLiteral("Comment"), Value(savedComment_));
        parameters_->Update();
    }
    close(false);
}

} // namespace orvo
