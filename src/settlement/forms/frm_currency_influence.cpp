#include "settlement/forms/frm_currency_influence.h"

#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/today.h"
#include "frame/catalogue.h"
#include "ui/widgets/qt_combo_control.h"

#include <QAction>
#include <QButtonGroup>
#include <QComboBox>
#include <QCoreApplication>
#include <QDateEdit>
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo {

namespace {

template <typename T> T* named(T* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QAction* action(QMenu* menu, const char* name, const QString& text) {
    QAction* a = menu->addAction(text);
    a->setObjectName(QString::fromLatin1(name));
    return a;
}

} // namespace

FrmCurrencyInfluence::FrmCurrencyInfluence()
    : ui::WidgetForm(QStringLiteral("frmCurrencyInfluence")) {}

FrmCurrencyInfluence::~FrmCurrencyInfluence() = default;

QWidget* FrmCurrencyInfluence::BuildWidget() {
    logic_ = std::make_unique<CurrencyRevaluation>(GetOrvoObjectUIO());
    auto* root = new QWidget;
    root_ = root;
    root->setWindowTitle(QStringLiteral(" Valiutos kursų pasikeitimo įtakos paskaičiavimas"));
    root->resize(900, 520);

    optByOpers_ = named(new QRadioButton(QStringLiteral("Operacijų likučiai"), root), "optByOpers");
    optByTotals_ =
        named(new QRadioButton(QStringLiteral("Sąskaitos likutis"), root), "optByTotals");
    auto* modes = new QButtonGroup(root);
    modes->addButton(optByOpers_);
    modes->addButton(optByTotals_);
    optByOpers_->setChecked(true);

    cmbAcc_ = named(new QComboBox(root), "cmbAcc");
    cmbAcc_->setEditable(true);
    cmbAcc_->setInsertPolicy(QComboBox::NoInsert);
    accountCombo_ = std::make_unique<ui::QtComboControl>(cmbAcc_);
    txtAddr_ = named(new QLineEdit(root), "txtAddr");
    txtAddr_->setReadOnly(true);
    cmdAddr_ = named(new QPushButton(QStringLiteral("..."), root), "cmdAddr");
    cmdCleanAddr_ = named(new QPushButton(QStringLiteral("X"), root), "cmdCleanAddr");
    optDeb_ = named(new QRadioButton(QStringLiteral("Debetas"), root), "optDeb");
    optCred_ = named(new QRadioButton(QStringLiteral("Kreditas"), root), "optCred");
    auto* sides = new QButtonGroup(root);
    sides->addButton(optDeb_);
    sides->addButton(optCred_);
    optDeb_->setChecked(true);
    pickerDate_ = named(new QDateEdit(root), "pickerDate");
    pickerDate_->setCalendarPopup(true);
    pickerDate_->setDisplayFormat(QStringLiteral("yyyy.MM.dd"));
    cmbVariants_ = named(new QComboBox(root), "cmbVariants");
    cmdVariants_ = named(new QPushButton(QStringLiteral("..."), root), "cmdVariants");

    for (QPushButton* small : {cmdAddr_, cmdCleanAddr_, cmdVariants_})
        small->setFixedWidth(32);
    lvwBROper_ = named(new QTreeWidget(root), "lvwBROper");
    lvwBROper_->setRootIsDecorated(false);
    lvwBROper_->setContextMenuPolicy(Qt::CustomContextMenu);
    lvwBROper_->setHeaderLabels(
        CurrencyRevaluation::Headers(NzString(Catalogue::GetBaseCurrency())));
    lvwBROper_->header()->resizeSection(0, 260);

    cmdGo_ = named(new QPushButton(QStringLiteral("Užpildyti"), root), "cmdGo");
    cmdOK_ = named(new QPushButton(QStringLiteral("Išsaugoti"), root), "cmdOK");
    cmdCancel_ = named(new QPushButton(QStringLiteral("Užbaigti"), root), "cmdCancel");
    lblStatus_ = named(new QLabel(root), "lblStatus");

    auto* settings = new QGroupBox(root);
    auto* grid = new QGridLayout(settings);
    grid->addWidget(optByOpers_, 0, 0);
    grid->addWidget(optByTotals_, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Balansinė sąskaita"), settings), 1, 0);
    grid->addWidget(cmbAcc_, 1, 1, 1, 3);
    grid->addWidget(new QLabel(QStringLiteral("Adresatas"), settings), 2, 0);
    grid->addWidget(txtAddr_, 2, 1, 1, 2);
    auto* addrButtons = new QHBoxLayout;
    addrButtons->addWidget(cmdAddr_);
    addrButtons->addWidget(cmdCleanAddr_);
    grid->addLayout(addrButtons, 2, 3);
    grid->addWidget(optDeb_, 3, 0);
    grid->addWidget(optCred_, 3, 1);
    grid->addWidget(new QLabel(QStringLiteral("Data:"), settings), 4, 0);
    grid->addWidget(pickerDate_, 4, 1);
    grid->addWidget(new QLabel(QStringLiteral("Išsaugoti variantai :"), settings), 5, 0);
    grid->addWidget(cmbVariants_, 5, 1, 1, 2);
    grid->addWidget(cmdVariants_, 5, 3);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblStatus_, 1);
    buttons->addWidget(cmdGo_);
    buttons->addWidget(cmdOK_);
    buttons->addWidget(cmdCancel_);
    auto* layout = new QVBoxLayout(root);
    layout->addWidget(settings);
    layout->addWidget(lvwBROper_, 1);
    layout->addLayout(buttons);
    buildMenus(root);

    logic_->onStatus = [this](const QString& text) {
        if (lblStatus_)
            lblStatus_->setText(text);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
    loading_ = true;
    logic_->Open(Today());
    Catalogue::FillAccountCombo(*accountCombo_, logic_->accounts, QString());
    cmbAcc_->setCurrentIndex(-1);
    cmbAcc_->setEditText(QString());
    pickerDate_->setDate(logic_->date);
    loading_ = false;
    showVariants();
    showRows();

    QObject::connect(optByOpers_, &QRadioButton::toggled, root, [this]() { choiceChanged(); });
    QObject::connect(optDeb_, &QRadioButton::toggled, root, [this]() { choiceChanged(); });
    QObject::connect(cmbAcc_, &QComboBox::activated, root, [this]() { choiceChanged(); });
    QObject::connect(cmbAcc_, &QComboBox::editTextChanged, root, [this]() { choiceChanged(); });
    QObject::connect(pickerDate_, &QDateEdit::dateChanged, root, [this](const QDate& d) {
        if (loading_)
            return;
        logic_->SetDate(d);
        showRows();
    });
    QObject::connect(cmdAddr_, &QPushButton::clicked, root, [this]() {
        mnuAddressees_->popup(cmdAddr_->mapToGlobal(QPoint(0, cmdAddr_->height())));
    });
    QObject::connect(cmdCleanAddr_, &QPushButton::clicked, root, [this]() {
        logic_->addressee.clear();
        logic_->addresseeText.clear();
        txtAddr_->clear();
        choiceChanged();
    });
    QObject::connect(cmdVariants_, &QPushButton::clicked, root, [this]() {
        mnuVariants_->popup(cmdVariants_->mapToGlobal(QPoint(0, cmdVariants_->height())));
    });
    QObject::connect(cmbVariants_, &QComboBox::activated, root, [this](int index) {
        if (loading_)
            return;
        logic_->ChooseVariant(index);
        showChoice();
        showRows();
    });
    QObject::connect(lvwBROper_, &QTreeWidget::itemChanged, root,
                     [this](QTreeWidgetItem* item) { itemChanged(item); });
    QObject::connect(
        lvwBROper_, &QTreeWidget::customContextMenuRequested, root, [this](const QPoint& at) {
            QTreeWidgetItem* item = lvwBROper_->itemAt(at);
            if (!item)
                return;
            lvwBROper_->setCurrentItem(item);
            const int index = lvwBROper_->indexOfTopLevelItem(item);
            const QString code = logic_->rows.value(index).CurrCode;
            QAction* rates = mnuInput_->findChild<QAction*>(QStringLiteral("mnuRates"));
            const bool currency = code.size() == 3 && code != QLatin1String("   ");
            rates->setEnabled(currency);
            rates->setText(currency ? code + QStringLiteral(" kurso įvedimas")
                                    : QStringLiteral("Valiutos kursai"));
            mnuInput_->popup(lvwBROper_->viewport()->mapToGlobal(at));
        });
    QObject::connect(cmdGo_, &QPushButton::clicked, root, [this]() { go(); });
    QObject::connect(cmdOK_, &QPushButton::clicked, root, [this]() { post(); });
    QObject::connect(cmdCancel_, &QPushButton::clicked, root, [this]() { closeWindow(); });
    return root;
}

void FrmCurrencyInfluence::buildMenus(QWidget* root) {
    mnuAddressees_ = named(new QMenu(QStringLiteral("Adresatų tipai"), root), "mnuAddressees");
    const struct {
        const char* name;
        const char* text;
        const char* kind;
    } kinds[] = {{"mnuBankAccount", "Banko sąskaita", "O0000500"},
                 {"mnuFirm", "Įmonė", "O0000100"},
                 {"mnuFirms", "Įmonės", ""},
                 {"mnuPerson", "Fizinis asmuo", "O0001402"},
                 {"mnuPersonal", "Darbuotojas", "O0001401"}};
    for (const auto& k : kinds) {
        QAction* a = action(mnuAddressees_, k.name, QString::fromUtf8(k.text));
        const QString kind = QString::fromLatin1(k.kind);
        QObject::connect(a, &QAction::triggered, root, [this, kind]() { pickAddressee(kind); });
    }
    mnuVariants_ = named(new QMenu(root), "mnuVariants");
    QObject::connect(action(mnuVariants_, "mnuAddVariant", QStringLiteral("Išsaugoti variantą")),
                     &QAction::triggered, root, [this]() {
                         if (!collect())
                             return;
                         if (logic_->SaveVariant())
                             showVariants();
                     });
    QObject::connect(
        action(mnuVariants_, "mnuDeleteVariant", QStringLiteral("Panaikinti variantą")),
        &QAction::triggered, root, [this]() {
            if (logic_->DeleteVariant(cmbVariants_->currentIndex()))
                showVariants();
        });
    mnuInput_ = named(new QMenu(root), "mnuInput");
    QObject::connect(action(mnuInput_, "mnuRates", QStringLiteral("Valiutos kursai")),
                     &QAction::triggered, root, [this]() { inputRate(); });
}

bool FrmCurrencyInfluence::collect() {
    logic_->mode = optByTotals_->isChecked() ? CurrencyRevaluation::Mode::ByAddr
                                             : CurrencyRevaluation::Mode::ByOpers;
    logic_->side = optCred_->isChecked() ? QStringLiteral("K") : QStringLiteral("D");
    if (!Catalogue::CheckAccountInList(*accountCombo_, logic_->accounts, false, true))
        return false;
    logic_->account = FirstWord(cmbAcc_->currentText());
    if (pickerDate_->date() != logic_->date)
        logic_->SetDate(pickerDate_->date());
    return true;
}

void FrmCurrencyInfluence::choiceChanged() {
    if (loading_)
        return;
    // The side belongs to the debts; a balance is read as it stands.
    optDeb_->setEnabled(optByOpers_->isChecked());
    optCred_->setEnabled(optByOpers_->isChecked());
    logic_->rows.clear();
    showRows();
}

void FrmCurrencyInfluence::showChoice() {
    loading_ = true;
    const bool byOpers = logic_->mode == CurrencyRevaluation::Mode::ByOpers;
    (byOpers ? optByOpers_ : optByTotals_)->setChecked(true);
    optDeb_->setEnabled(byOpers);
    optCred_->setEnabled(byOpers);
    (logic_->side == QLatin1String("K") ? optCred_ : optDeb_)->setChecked(true);
    Catalogue::FillAccountCombo(*accountCombo_, logic_->accounts, logic_->account);
    txtAddr_->setText(logic_->addresseeText);
    loading_ = false;
}

void FrmCurrencyInfluence::showRows() {
    loading_ = true;
    lvwBROper_->clear();
    for (const CurrencyRevaluation::Row& row : logic_->rows) {
        auto* item = new QTreeWidgetItem(lvwBROper_, row.Cells());
        item->setData(0, Qt::UserRole, row.Tag);
        for (int c = 1; c < lvwBROper_->columnCount(); ++c)
            item->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
        if (row.Total) {
            QFont bold = item->font(0);
            bold.setBold(true);
            for (int c = 0; c < lvwBROper_->columnCount(); ++c)
                item->setFont(c, bold);
            continue;
        }
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(0, row.Checked ? Qt::Checked : Qt::Unchecked);
    }
    lblStatus_->setText(logic_->status);
    loading_ = false;
}

void FrmCurrencyInfluence::showVariants() {
    loading_ = true;
    const int current = cmbVariants_->currentIndex();
    cmbVariants_->clear();
    cmbVariants_->addItems(logic_->VariantCaptions());
    cmbVariants_->setCurrentIndex(qMin(current, cmbVariants_->count() - 1));
    loading_ = false;
}

void FrmCurrencyInfluence::pickAddressee(const QString& kind) {
    if (kind.isEmpty()) {
        // The whole kind of firms.
        logic_->addressee = QStringLiteral("O0000100");
        logic_->addresseeText = QStringLiteral("Visi klientai");
    } else {
        const QString picked = Catalogue::SelectAddressee(
            kind, Catalogue::AddresseeDialogTitle(kind), QString(), QString());
        if (picked.isEmpty())
            return;
        const int underscore = picked.indexOf(QLatin1Char('_'));
        logic_->addressee = underscore < 0 ? picked : picked.left(underscore);
        logic_->addresseeText = underscore < 0 ? picked : picked.mid(underscore + 1);
    }
    txtAddr_->setText(logic_->addresseeText);
    choiceChanged();
}

void FrmCurrencyInfluence::go() {
    if (!collect())
        return;
    for (QPushButton* b : {cmdGo_, cmdOK_})
        b->setEnabled(false);
    logic_->Go();
    for (QPushButton* b : {cmdGo_, cmdOK_})
        b->setEnabled(true);
    showRows();
}

void FrmCurrencyInfluence::post() {
    if (logic_->Post() == CurrencyRevaluation::PostResult::Failed) {
        closeWindow();
        return;
    }
    showRows();
    showVariants();
}

void FrmCurrencyInfluence::itemChanged(QTreeWidgetItem* item) {
    if (loading_ || !item)
        return;
    const int index = lvwBROper_->indexOfTopLevelItem(item);
    const bool wanted = item->checkState(0) == Qt::Checked;
    const bool checked = logic_->SetChecked(index, wanted);
    if (checked != wanted) {
        loading_ = true;
        item->setCheckState(0, checked ? Qt::Checked : Qt::Unchecked);
        loading_ = false;
    }
}

void FrmCurrencyInfluence::inputRate() {
    const int index = lvwBROper_->indexOfTopLevelItem(lvwBROper_->currentItem());
    if (logic_->InputRate(index))
        showRows();
}

void FrmCurrencyInfluence::closeWindow() {
    if (!root_)
        return;
    if (auto* dialog = qobject_cast<QDialog*>(root_->window()); dialog && dialog != root_.data()) {
        dialog->reject();
        return;
    }
    UnloadShowOrvoObject();
}

} // namespace orvo
