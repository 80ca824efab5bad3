#include "settlement/forms/frm_covers_in_future.h"

#include "core/number_text.h"
#include "frame/catalogue.h"
#include "settlement/forms/frm_accounts_closing_controls.h"
#include "settlement/forms/frm_covers_in_future_parameters.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo {

namespace {

using Row = DeferredCovers::Row;

QString dateCell(const QDate& date) {
    return date.isValid() ? date.toString(QStringLiteral("yyyy.MM.dd")) : QString();
}

} // namespace

FrmCoversInFuture::FrmCoversInFuture() : ui::WidgetForm(QStringLiteral("frmCoversInFuture")) {}

FrmCoversInFuture::~FrmCoversInFuture() = default;

QWidget* FrmCoversInFuture::BuildWidget() {
    covers_ = std::make_unique<DeferredCovers>(GetOrvoObjectUIO());
    auto* root = new QWidget;
    root_ = root;
    root->setWindowTitle(QStringLiteral(" Būsimų laikotarpių dengimai"));
    lblTitle_ = new QLabel(root);
    lblTitle_->setObjectName(QStringLiteral("lblTitle"));

    frameSelectBR_ = new QGroupBox(QStringLiteral("Dengiamų įrašų atranka"), root);
    frameSelectBR_->setObjectName(QStringLiteral("frameSelectBR"));
    cmbAcc_ = closing_controls::AccountBox(frameSelectBR_, "cmbAcc");
    optDebit_ = new QRadioButton(QStringLiteral("Debetas"), frameSelectBR_);
    optDebit_->setObjectName(QStringLiteral("optDebit"));
    optCredit_ = new QRadioButton(QStringLiteral("Kreditas"), frameSelectBR_);
    optCredit_->setObjectName(QStringLiteral("optCredit"));
    dtpDate1_ = closing_controls::DateBox(frameSelectBR_, "dtpDate1", QStringLiteral("yyyy.MM.dd"));
    dtpDate2_ = closing_controls::DateBox(frameSelectBR_, "dtpDate2", QStringLiteral("yyyy.MM.dd"));
    chkOnlyNotCovered_ = new QCheckBox(frameSelectBR_);
    chkOnlyNotCovered_->setObjectName(QStringLiteral("chkOnlyNotCovered"));
    chkDetailView_ = new QCheckBox(QStringLiteral("Rodyti dengimo įrašus"), frameSelectBR_);
    chkDetailView_->setObjectName(QStringLiteral("chkDetailView"));
    auto* cmdFill =
        closing_controls::Button(frameSelectBR_, "cmdFill", QStringLiteral("Užpildyti"));
    auto* select = new QGridLayout(frameSelectBR_);
    select->addWidget(new QLabel(QStringLiteral("Sąskaita"), frameSelectBR_), 0, 0);
    select->addWidget(cmbAcc_, 0, 1);
    select->addWidget(optDebit_, 0, 2);
    select->addWidget(optCredit_, 0, 3);
    select->addWidget(new QLabel(QStringLiteral("Laikotarpis"), frameSelectBR_), 1, 0);
    auto* period = new QHBoxLayout;
    period->addWidget(dtpDate1_);
    period->addWidget(dtpDate2_);
    select->addLayout(period, 1, 1);
    select->addWidget(chkOnlyNotCovered_, 1, 2);
    select->addWidget(chkDetailView_, 1, 3);
    select->addWidget(cmdFill, 0, 4, 2, 1);

    frameSettings_ = new QGroupBox(QStringLiteral("Operacijos nustatymai"), root);
    frameSettings_->setObjectName(QStringLiteral("frameSettings"));
    txtGroup_ = closing_controls::Edit(frameSettings_, "txtGroup");
    txtGroup_->setReadOnly(true);
    txtNumber_ = closing_controls::Edit(frameSettings_, "txtNumber");
    dtpOperDate_ =
        closing_controls::DateBox(frameSettings_, "dtpOperDate", QStringLiteral("yyyy.MM.dd"));
    cmbCoverAcc_ = closing_controls::AccountBox(frameSettings_, "cmbCoverAcc");
    dtpDateFrom_ =
        closing_controls::DateBox(frameSettings_, "dtpDateFrom", QStringLiteral("yyyy.MM"));
    txtMonthCount_ = closing_controls::Edit(frameSettings_, "txtMonthCount");
    txtMonthCount_->setValidator(new QIntValidator(0, 9999, txtMonthCount_));
    txtCoverSum_ = closing_controls::Edit(frameSettings_, "txtCoverSum");
    txtCoverSum_->setReadOnly(true);
    txtComment_ = closing_controls::Edit(frameSettings_, "txtComment");
    txtAddresse_ = closing_controls::Edit(frameSettings_, "txtAddresse");
    txtAddresse_->setReadOnly(true);
    auto* cmdAddresse =
        closing_controls::Button(frameSettings_, "cmdAddresse", QStringLiteral("..."));
    auto* cmdClearAddresse =
        closing_controls::Button(frameSettings_, "cmdClearAddresse", QStringLiteral("X"));
    auto* settings = new QGridLayout(frameSettings_);
    settings->addWidget(new QLabel(QStringLiteral("Operacijos grupė"), frameSettings_), 0, 0);
    settings->addWidget(txtGroup_, 0, 1);
    settings->addWidget(txtNumber_, 0, 2);
    settings->addWidget(new QLabel(QStringLiteral("Operacijos data"), frameSettings_), 0, 3);
    settings->addWidget(dtpOperDate_, 0, 4);
    settings->addWidget(new QLabel(QStringLiteral("Sąskaita"), frameSettings_), 1, 0);
    settings->addWidget(cmbCoverAcc_, 1, 1, 1, 2);
    settings->addWidget(new QLabel(QStringLiteral("Nuo mėnesio"), frameSettings_), 2, 0);
    auto* months = new QHBoxLayout;
    months->addWidget(dtpDateFrom_);
    months->addWidget(new QLabel(QStringLiteral("mėnesių skaičius"), frameSettings_));
    months->addWidget(txtMonthCount_);
    months->addWidget(new QLabel(QStringLiteral("suma"), frameSettings_));
    months->addWidget(txtCoverSum_);
    settings->addLayout(months, 2, 1, 1, 4);
    settings->addWidget(new QLabel(QStringLiteral("Komentaras"), frameSettings_), 3, 0);
    settings->addWidget(txtComment_, 3, 1, 1, 4);
    settings->addWidget(new QLabel(QStringLiteral("Adresatas"), frameSettings_), 4, 0);
    auto* addressee = new QHBoxLayout;
    addressee->addWidget(txtAddresse_);
    addressee->addWidget(cmdAddresse);
    addressee->addWidget(cmdClearAddresse);
    settings->addLayout(addressee, 4, 1, 1, 4);

    lvwRows_ = new QTreeWidget(root);
    lvwRows_->setObjectName(QStringLiteral("lvwRows"));
    lvwRows_->setRootIsDecorated(false);
    lvwRows_->setColumnCount(DeferredCovers::ColumnCaptions().size());
    lvwRows_->setContextMenuPolicy(Qt::CustomContextMenu);

    auto* cmdSelectAll =
        closing_controls::Button(root, "cmdSelectAll", QStringLiteral("Pažymėti/Atšaukti"));
    auto* cmdWrite = closing_controls::Button(root, "cmdWrite", QStringLiteral("Sukurti"));
    auto* SSCClose = closing_controls::Button(root, "SSCClose", QStringLiteral("Uždaryti"));
    auto* commands = new QHBoxLayout;
    commands->addWidget(cmdSelectAll);
    commands->addStretch();
    commands->addWidget(cmdWrite);
    commands->addWidget(SSCClose);

    auto* layout = new QVBoxLayout(root);
    layout->addWidget(lblTitle_);
    layout->addWidget(frameSelectBR_);
    layout->addWidget(frameSettings_);
    layout->addWidget(lvwRows_, 1);
    layout->addLayout(commands);
    buildMenu(root);

    covers_->Load();
    showSettings();
    showSide();
    cmdWrite->setEnabled(covers_->Rights.Create != 0 || covers_->Rights.Edit != 0);

    QObject::connect(optDebit_, &QRadioButton::toggled, root, [this]() {
        covers_->ByDebit = optDebit_->isChecked();
        showSide();
    });
    QObject::connect(cmdFill, &QPushButton::clicked, root, [this]() { fill(); });
    QObject::connect(cmdWrite, &QPushButton::clicked, root, [this]() { write(); });
    QObject::connect(cmdSelectAll, &QPushButton::clicked, root, [this]() {
        readChecks();
        covers_->ToggleAll();
        paint();
    });
    QObject::connect(SSCClose, &QPushButton::clicked, root, [this]() { UnloadShowOrvoObject(); });
    QObject::connect(cmdAddresse, &QPushButton::clicked, root, [this]() { pickAddressee(); });
    QObject::connect(cmdClearAddresse, &QPushButton::clicked, root, [this]() {
        covers_->AddresseeOIDR.clear();
        covers_->AddresseeText.clear();
        txtAddresse_->clear();
    });
    QObject::connect(
        lvwRows_, &QTreeWidget::customContextMenuRequested, root,
        [this](const QPoint& at) { menu_->popup(lvwRows_->viewport()->mapToGlobal(at)); });
    QObject::connect(lvwRows_, &QTreeWidget::currentItemChanged, root, [this]() {
        const int row = currentRow();
        txtCoverSum_->clear();
        if (row < 0)
            return;
        const Row& r = covers_->Rows.at(row);
        const QVector<double> sums = DeferredCovers::MonthlySums(r.SumA, r.MonthCount.toInt());
        if (!sums.isEmpty())
            txtCoverSum_->setText(FormatAmount(sums.first()));
    });
    return root;
}

void FrmCoversInFuture::buildMenu(QWidget* root) {
    menu_ = new QMenu(root);
    menu_->setObjectName(QStringLiteral("mnuRows"));
    const struct {
        int number;
        const char* name;
        const char* text;
    } items[] = {{101, "mnuOnDeskTop", "Į darbalaukį"},
                 {102, "mnuFillPeriod", "Pažymėtuose įrašuose įrašyti laikotarpį"},
                 {103, "mnuPeriod", "Laikotarpio redagavimas"},
                 {104, "mnuOnDeskTop2", "Dengimo operacija į darbalaukį"},
                 {105, "mnuDelete", "Panaikinti dengimo operaciją"}};
    for (const auto& item : items) {
        QAction* a = menu_->addAction(QString::fromUtf8(item.text));
        a->setObjectName(QString::fromLatin1(item.name));
        a->setData(item.number);
        const int number = item.number;
        QObject::connect(a, &QAction::triggered, root, [this, number]() { RunMenu(number); });
    }
}

void FrmCoversInFuture::RunMenu(int number) {
    switch (number) {
    case 101:
        onDesktop(false);
        break;
    case 102:
        collect();
        covers_->FillPeriod();
        paint();
        break;
    case 103:
        editPeriod();
        break;
    case 104:
        onDesktop(true);
        break;
    case 105: {
        readChecks();
        const int row = currentRow();
        if (covers_->DeleteCover(row))
            paint();
        break;
    }
    default:
        break;
    }
}

void FrmCoversInFuture::showSide() {
    optDebit_->setChecked(covers_->ByDebit);
    optCredit_->setChecked(!covers_->ByDebit);
    lblTitle_->setText(covers_->Title());
    chkOnlyNotCovered_->setText(covers_->OnlyNotCoveredCaption());
    QStringList headers = DeferredCovers::ColumnCaptions();
    headers[DeferredCovers::ColumnKeys().indexOf(QStringLiteral("RelatedBROper"))] =
        covers_->RelatedCaption();
    lvwRows_->setHeaderLabels(headers);
}

void FrmCoversInFuture::showSettings() {
    const QStringList accounts = covers_->Accounts();
    closing_controls::ShowAccounts(cmbAcc_, accounts, covers_->Account);
    closing_controls::ShowAccounts(cmbCoverAcc_, accounts, covers_->CoverAccount);
    dtpDate1_->setDate(covers_->Date1);
    dtpDate2_->setDate(covers_->Date2);
    chkOnlyNotCovered_->setChecked(covers_->OnlyNotCovered);
    chkDetailView_->setChecked(covers_->DetailView);
    txtGroup_->setText(covers_->GroupText);
    txtNumber_->setText(covers_->Number);
    dtpOperDate_->setDate(covers_->OperDate);
    dtpDateFrom_->setDate(covers_->DateFrom);
    txtMonthCount_->setText(covers_->MonthCount);
    txtComment_->setText(covers_->Comment);
    txtAddresse_->setText(covers_->AddresseeText);
}

void FrmCoversInFuture::collect() {
    readChecks();
    covers_->Account = FirstWord(cmbAcc_->currentText());
    covers_->ByDebit = optDebit_->isChecked();
    covers_->Date1 = dtpDate1_->date();
    covers_->Date2 = dtpDate2_->date();
    covers_->OnlyNotCovered = chkOnlyNotCovered_->isChecked();
    covers_->DetailView = chkDetailView_->isChecked();
    covers_->Number = txtNumber_->text();
    covers_->OperDate = dtpOperDate_->date();
    covers_->CoverAccount = FirstWord(cmbCoverAcc_->currentText());
    covers_->DateFrom = dtpDateFrom_->date();
    covers_->MonthCount = txtMonthCount_->text().trimmed();
    covers_->Comment = txtComment_->text();
}

void FrmCoversInFuture::readChecks() {
    for (int i = 0; i < lvwRows_->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = lvwRows_->topLevelItem(i);
        const int row = item->data(0, Qt::UserRole).toInt();
        if (row >= 0 && row < covers_->Rows.size() &&
            covers_->Rows.at(row).RowKind == Row::Kind::Entry)
            covers_->Rows[row].Checked = item->checkState(0) == Qt::Checked;
    }
}

void FrmCoversInFuture::fill() {
    collect();
    covers_->Fill();
    paint();
}

void FrmCoversInFuture::paint() {
    lvwRows_->clear();
    for (int i = 0; i < covers_->Rows.size(); ++i) {
        const Row& r = covers_->Rows.at(i);
        auto* item = new QTreeWidgetItem(lvwRows_);
        item->setData(0, Qt::UserRole, i);
        if (r.RowKind == Row::Kind::Entry) {
            item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
            item->setCheckState(0, r.Checked ? Qt::Checked : Qt::Unchecked);
        }
        const bool cover = r.RowKind == Row::Kind::Cover;
        item->setText(0, dateCell(r.DateD));
        item->setText(1, r.Number);
        item->setText(2, cover ? QString() : FormatAmount(r.SumA));
        item->setText(3, r.MonthFrom);
        item->setText(4, r.MonthCount);
        item->setText(5, r.Comment);
        item->setText(6, r.RelatedBROper);
        item->setText(7, dateCell(r.BRDate));
        item->setText(8, cover ? FormatAmount(r.BRSumA) : QString());
        item->setText(9, r.AccountD);
        item->setText(10, r.AccountC);
        for (int c : {2, 8})
            item->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
        if (r.RowKind == Row::Kind::Total) {
            QFont bold = item->font(0);
            bold.setBold(true);
            for (int c = 0; c < lvwRows_->columnCount(); ++c)
                item->setFont(c, bold);
        }
    }
}

int FrmCoversInFuture::currentRow() const {
    const QTreeWidgetItem* item = lvwRows_->currentItem();
    return item ? item->data(0, Qt::UserRole).toInt() : -1;
}

void FrmCoversInFuture::editPeriod() {
    readChecks();
    const int row = currentRow();
    if (row < 0 || covers_->Rows.at(row).RowKind != Row::Kind::Entry)
        return;
    auto dialog = std::make_shared<FrmCoversInFutureParameters>();
    const Row& r = covers_->Rows.at(row);
    dialog->SetPeriod(r.MonthFrom, r.MonthCount, dtpDateFrom_->date());
    dialog->Show(true);
    if (dialog->Cancelled())
        return;
    covers_->SetPeriod(row, dialog->MonthFrom(), dialog->MonthCount());
    paint();
}

void FrmCoversInFuture::pickAddressee() {
    const QString code = QStringLiteral("O0000100");
    const QString answer = Catalogue::SelectAddressee(code, Catalogue::AddresseeDialogTitle(code),
                                                      QString(), QString());
    if (answer.isEmpty())
        return;
    covers_->AddresseeOIDR = answer.section(QLatin1Char('_'), 0, 0);
    covers_->AddresseeText = answer.section(QLatin1Char('_'), 1);
    txtAddresse_->setText(covers_->AddresseeText);
}

void FrmCoversInFuture::write() {
    collect();
    covers_->Write();
    paint();
    txtNumber_->setText(covers_->Number);
}

void FrmCoversInFuture::onDesktop(bool cover) {
    const int row = currentRow();
    if (row < 0)
        return;
    const Row& r = covers_->Rows.at(row);
    const QString oidr = cover ? r.RelatedOIDR : r.Key;
    if (oidr.size() < 9)
        return;
    OrvoObjectUIOPtr uio;
    if (const OrvoFormPtr form = Catalogue::OpenOperationForm(oidr, uio))
        form->Show(false);
}

} // namespace orvo
