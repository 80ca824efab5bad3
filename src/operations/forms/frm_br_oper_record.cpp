#include "operations/forms/frm_br_oper_record.h"

#include "core/number_text.h"
#include "frame/catalogue.h"
#include "frame/messages.h"
#include "ui/shell/built_widget_form.h"
#include "ui/widgets/number_field.h"
#include "ui/widgets/qt_list_control.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo {

namespace {

// Ctrl+S and Ctrl+N pressed in any field of the card, also where the card's window is
// not the active one (the shortcuts of an active window take them first).
class CardKeys : public QObject {
public:
    CardKeys(std::function<void(qint16)> save, QObject* parent)
        : QObject(parent), save_(std::move(save)) {}

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        auto* key = static_cast<QKeyEvent*>(event);
        if (!(key->modifiers() & Qt::ControlModifier))
            return false;
        if (key->key() == Qt::Key_S) {
            save_(2);
            return true;
        }
        if (key->key() == Qt::Key_N) {
            save_(3);
            return true;
        }
        return false;
    }

private:
    std::function<void(qint16)> save_;
};

const char* sideLetter(EntryEditor::Side side) {
    return side == EntryEditor::Debit ? "D" : "C";
}

QString named(const char* prefix, EntryEditor::Side side) {
    return QString::fromLatin1(prefix) + QString::fromLatin1(sideLetter(side));
}

} // namespace

FrmBROperRecord::FrmBROperRecord() = default;
FrmBROperRecord::~FrmBROperRecord() = default;

void FrmBROperRecord::Show(bool) {
    // The card is always modal: ShowBR waits for its answer.
    window_ = std::make_shared<ui::BuiltWidgetForm>(QStringLiteral("frmBROperRecord"),
                                                    [this]() { return build(); });
    window_->SetOrvoObjectUIO(GetOrvoObjectUIO());
    window_->Show(true);
    result_ = editor_ ? editor_->Result : qint16(0);
    if (entries_)
        entries_->SetFilter(QString());
    window_.reset();
}

void FrmBROperRecord::UnloadShowOrvoObject() {
    close();
}

QTreeWidget* FrmBROperRecord::addressList(EntryEditor::Side side) const {
    return lvwAddress_[side];
}

QWidget* FrmBROperRecord::build() {
    auto* root = new QWidget;
    root_ = root;
    root->setWindowTitle(QStringLiteral("Įrašo kortelė"));

    dtpDate_ = new QDateEdit(root);
    dtpDate_->setObjectName(QStringLiteral("dtpDate"));
    dtpDate_->setCalendarPopup(true);
    dtpDate_->setDisplayFormat(QStringLiteral("yyyy.MM.dd"));
    txtComment_ = new QLineEdit(root);
    txtComment_->setObjectName(QStringLiteral("txtComment"));
    lblSuma_ = new QLabel(QStringLiteral("Suma #"), root);
    lblSuma_->setObjectName(QStringLiteral("lblSuma"));
    txtSuma_ = new QLineEdit(root);
    txtSuma_->setObjectName(QStringLiteral("txtSuma"));
    ui::NumberField::Attach(txtSuma_, 2);
    cmbTradeOperationTypes_ = new QComboBox(root);
    cmbTradeOperationTypes_->setObjectName(QStringLiteral("cmbTradeOperationTypes"));
    cmbTradeOperationTypes_->addItems(EntryEditor::TradeTypes());
    chkVATFlag_ = new QCheckBox(QStringLiteral("PVM tarifas"), root);
    chkVATFlag_->setObjectName(QStringLiteral("chkVATFlag"));
    cmbVATTariff_ = new QComboBox(root);
    cmbVATTariff_->setObjectName(QStringLiteral("cmbVATTariff"));
    cmbVATTariff_->setEditable(true);
    cmbVAT_ = new QComboBox(root);
    cmbVAT_->setObjectName(QStringLiteral("cmbVAT"));
    cmbVAT_->addItems(EntryEditor::VATIndications());
    lblVAT_ = new QLabel(QStringLiteral("PVM"), root);
    lblVAT_->setObjectName(QStringLiteral("lblVAT"));

    auto* top = new QGridLayout;
    top->addWidget(new QLabel(QStringLiteral("Data"), root), 0, 0);
    top->addWidget(dtpDate_, 0, 1);
    top->addWidget(lblSuma_, 0, 2);
    top->addWidget(txtSuma_, 0, 3);
    top->addWidget(new QLabel(QStringLiteral("Turinys"), root), 1, 0);
    top->addWidget(txtComment_, 1, 1, 1, 3);
    top->addWidget(cmbTradeOperationTypes_, 2, 0, 1, 2);
    top->addWidget(lblVAT_, 2, 2);
    top->addWidget(cmbVAT_, 2, 3);
    top->addWidget(chkVATFlag_, 3, 2);
    top->addWidget(cmbVATTariff_, 3, 3);

    auto* sides = new QHBoxLayout;
    for (EntryEditor::Side side : {EntryEditor::Debit, EntryEditor::Credit}) {
        auto* box = new QGroupBox(side == EntryEditor::Debit ? QStringLiteral("Debetas")
                                                             : QStringLiteral("Kreditas"),
                                  root);
        auto* grid = new QGridLayout(box);
        cmbAccount_[side] = new QComboBox(box);
        cmbAccount_[side]->setObjectName(named("cmbAccount", side));
        cmbAccount_[side]->setEditable(true);
        cmbAccount_[side]->setInsertPolicy(QComboBox::NoInsert);
        cmbCurr_[side] = new QComboBox(box);
        cmbCurr_[side]->setObjectName(named("cmbCurr", side));
        txtRateCurr_[side] = new QLineEdit(box);
        txtRateCurr_[side]->setObjectName(named("txtRateCurr", side));
        txtSumCurr_[side] = new QLineEdit(box);
        txtSumCurr_[side]->setObjectName(named("txtSumCurr", side));
        lvwAddress_[side] = new QTreeWidget(box);
        lvwAddress_[side]->setObjectName(named("lvwAddress", side));
        lvwAddress_[side]->setHeaderLabels(
            {QStringLiteral("Pavadinimas"), QStringLiteral("Reikšmė")});
        lvwAddress_[side]->setRootIsDecorated(false);
        lvwAddress_[side]->setContextMenuPolicy(Qt::CustomContextMenu);
        grid->addWidget(new QLabel(QStringLiteral("Sąskaita"), box), 0, 0);
        grid->addWidget(cmbAccount_[side], 0, 1, 1, 3);
        grid->addWidget(new QLabel(QStringLiteral("Valiuta"), box), 1, 0);
        grid->addWidget(cmbCurr_[side], 1, 1);
        grid->addWidget(new QLabel(QStringLiteral("Kursas"), box), 2, 0);
        grid->addWidget(txtRateCurr_[side], 2, 1);
        grid->addWidget(new QLabel(QStringLiteral("Suma valiuta"), box), 3, 0);
        grid->addWidget(txtSumCurr_[side], 3, 1);
        grid->addWidget(lvwAddress_[side], 4, 0, 1, 4);
        sides->addWidget(box);
        comboControls_[side] = std::make_unique<ui::QtComboControl>(cmbAccount_[side]);
        comboControls_[2 + side] = std::make_unique<ui::QtComboControl>(cmbCurr_[side]);
    }

    cmdPrevious_ = new QPushButton(QStringLiteral("<"), root);
    cmdPrevious_->setObjectName(QStringLiteral("cmdPrevious"));
    cmdNext_ = new QPushButton(QStringLiteral(">"), root);
    cmdNext_->setObjectName(QStringLiteral("cmdNext"));
    chkNavigation_ = new QCheckBox(QStringLiteral("Navigacija"), root);
    chkNavigation_->setObjectName(QStringLiteral("chkNavigation"));
    cmdWrite_ = new QToolButton(root);
    cmdWrite_->setObjectName(QStringLiteral("cmdWrite"));
    cmdWrite_->setText(QStringLiteral("Išsaugoti"));
    cmdWrite_->setPopupMode(QToolButton::MenuButtonPopup);
    auto* writeMenu = new QMenu(cmdWrite_);
    QAction* saveOper = writeMenu->addAction(QStringLiteral("Įrašyti visą operaciją , CTRL + S"));
    saveOper->setObjectName(QStringLiteral("mnuSaveOper"));
    QAction* saveNew = writeMenu->addAction(
        QStringLiteral("Įrašyti visą operaciją  ir atidaryti naują, CTRL + N"));
    saveNew->setObjectName(QStringLiteral("mnuSaveOperAndNew"));
    // The keys the menu's captions name work anywhere on the card.
    for (const auto& [key, result] : {std::pair{Qt::Key_S, 2}, std::pair{Qt::Key_N, 3}}) {
        auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | key), root);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        QObject::connect(shortcut, &QShortcut::activated, root,
                         [this, result]() { save(static_cast<qint16>(result)); });
    }
    cmdWrite_->setMenu(writeMenu);
    cmdExit_ = new QPushButton(QStringLiteral("Uždaryti"), root);
    cmdExit_->setObjectName(QStringLiteral("cmdExit"));
    cmdExit_->setAutoDefault(false);
    cmdPrevious_->setAutoDefault(false);
    cmdNext_->setAutoDefault(false);
    auto* commands = new QHBoxLayout;
    commands->addWidget(cmdPrevious_);
    commands->addWidget(cmdNext_);
    commands->addWidget(chkNavigation_);
    commands->addStretch();
    commands->addWidget(cmdWrite_);
    commands->addWidget(cmdExit_);

    auto* layout = new QVBoxLayout(root);
    layout->addLayout(top);
    layout->addLayout(sides);
    layout->addLayout(commands);

    QWidget::setTabOrder(dtpDate_, txtSuma_);
    QWidget::setTabOrder(txtSuma_, txtComment_);
    QWidget::setTabOrder(txtComment_, cmbAccount_[0]);
    QWidget::setTabOrder(cmbAccount_[0], cmbCurr_[0]);
    QWidget::setTabOrder(cmbCurr_[0], txtRateCurr_[0]);
    QWidget::setTabOrder(txtRateCurr_[0], txtSumCurr_[0]);
    QWidget::setTabOrder(txtSumCurr_[0], lvwAddress_[0]);
    QWidget::setTabOrder(lvwAddress_[0], cmbAccount_[1]);
    QWidget::setTabOrder(cmbAccount_[1], cmbCurr_[1]);
    QWidget::setTabOrder(cmbCurr_[1], txtRateCurr_[1]);
    QWidget::setTabOrder(txtRateCurr_[1], txtSumCurr_[1]);
    QWidget::setTabOrder(txtSumCurr_[1], lvwAddress_[1]);
    QWidget::setTabOrder(lvwAddress_[1], cmbTradeOperationTypes_);
    QWidget::setTabOrder(cmbTradeOperationTypes_, cmbVAT_);
    QWidget::setTabOrder(cmbVAT_, chkVATFlag_);
    QWidget::setTabOrder(chkVATFlag_, cmbVATTariff_);
    QWidget::setTabOrder(cmbVATTariff_, cmdWrite_);
    QWidget::setTabOrder(cmdWrite_, cmdExit_);

    editor_ =
        std::make_unique<EntryEditor>(GetOrvoObjectUIO(), *comboControls_[0], *comboControls_[1],
                                      *comboControls_[2], *comboControls_[3]);
    editor_->Entries = entries_;
    editor_->GUID = guid_;
    editor_->Restricted = restricted_;
    editor_->CurrenciesEditable = currenciesEditable_;
    editor_->Tab = tab_;
    editor_->AllowedKinds = allowedKinds_;
    filling_ = true;
    editor_->Load();
    filling_ = false;
    lblSuma_->setText(editor_->SumLabel());
    cmbVATTariff_->addItems(editor_->Tariffs);

    mnuAddresses_ = new QMenu(root);
    mnuAddresses_->setObjectName(QStringLiteral("mnuAddresses"));
    mnuAddresses_->setTitle(QStringLiteral("Operacijos adresatai"));
    int index = 0;
    for (const QString& kind : editor_->OfferedKinds()) {
        QAction* a = mnuAddresses_->addAction(editor_->KindNames && editor_->KindNames->Exists(kind)
                                                  ? editor_->KindNames->Item(kind).toString()
                                                  : kind);
        a->setObjectName(QStringLiteral("mnuProperties%1").arg(index++));
        a->setData(kind);
        QObject::connect(a, &QAction::triggered, root,
                         [this, kind]() { pickAddressee(menuSide_, kind); });
    }
    QAction* search = mnuAddresses_->addAction(QStringLiteral("Paieška"));
    search->setObjectName(QStringLiteral("mnuProperties%1").arg(index++));
    QObject::connect(search, &QAction::triggered, root, [this]() {
        QTreeWidget* list = addressList(menuSide_);
        QTreeWidgetItem* item = list ? list->currentItem() : nullptr;
        if (item)
            pickAddressee(menuSide_, ui::QtListControl::KeyOf(item));
    });
    mnuAddresses_->addSeparator();
    QAction* remove = mnuAddresses_->addAction(QStringLiteral("Panaikinti"));
    remove->setObjectName(QStringLiteral("mnuProperties%1").arg(index));
    QObject::connect(remove, &QAction::triggered, root, [this]() { clearAddressee(menuSide_); });

    for (EntryEditor::Side side : {EntryEditor::Debit, EntryEditor::Credit}) {
        QObject::connect(lvwAddress_[side], &QWidget::customContextMenuRequested, root,
                         [this, side](const QPoint& at) {
                             menuSide_ = side;
                             mnuAddresses_->popup(lvwAddress_[side]->viewport()->mapToGlobal(at));
                         });
        QObject::connect(lvwAddress_[side], &QTreeWidget::itemDoubleClicked, root,
                         [this, side](QTreeWidgetItem* item) {
                             pickAddressee(side, ui::QtListControl::KeyOf(item));
                         });
        ui::NumberField* rate = ui::NumberField::Attach(txtRateCurr_[side], 9);
        ui::NumberField* sum = ui::NumberField::Attach(txtSumCurr_[side], 2);
        auto left = [this, side]() {
            if (filling_)
                return;
            collect();
            editor_->SideLeft(side);
            showEditor();
        };
        rate->OnLeft = left;
        sum->OnLeft = left;
        QObject::connect(cmbCurr_[side], &QComboBox::activated, root, [this, side]() {
            if (filling_)
                return;
            collect();
            editor_->CurrencyChanged(side);
            showEditor();
        });
        QObject::connect(cmbAccount_[side], &QComboBox::activated, root, [this, side]() {
            if (filling_)
                return;
            collect();
            editor_->AccountLeft(side);
            showEditor();
        });
        QObject::connect(cmbAccount_[side]->lineEdit(), &QLineEdit::editingFinished, root,
                         [this, side]() {
                             if (filling_)
                                 return;
                             collect();
                             editor_->AccountLeft(side);
                             showEditor();
                         });
    }
    for (QLineEdit* edit :
         {txtComment_, txtSuma_, txtRateCurr_[0], txtSumCurr_[0], txtRateCurr_[1], txtSumCurr_[1]})
        QObject::connect(edit, &QLineEdit::textEdited, root, [this]() {
            if (!filling_)
                editor_->Changed = true;
        });
    QObject::connect(dtpDate_, &QDateEdit::editingFinished, root, [this]() {
        if (filling_)
            return;
        collect();
        editor_->DateLeft(dtpDate_->date());
        showEditor();
    });
    QObject::connect(cmbTradeOperationTypes_, &QComboBox::activated, root, [this](int index) {
        if (filling_)
            return;
        collect();
        editor_->TradeTypeChanged(static_cast<qint16>(index));
        showEditor();
    });
    QObject::connect(cmbVATTariff_, &QComboBox::currentTextChanged, root,
                     [this](const QString& text) {
                         if (filling_)
                             return;
                         collect();
                         editor_->TariffChanged(text);
                         showEditor();
                     });
    QObject::connect(chkVATFlag_, &QCheckBox::toggled, root, [this](bool on) {
        if (!filling_) {
            editor_->VATFlag = on;
            editor_->Changed = true;
        }
    });
    QObject::connect(cmbVAT_, &QComboBox::activated, root, [this](int index) {
        if (!filling_) {
            editor_->VATIndication = static_cast<qint16>(index);
            editor_->Changed = true;
        }
    });
    QObject::connect(chkNavigation_, &QCheckBox::toggled, root, [this]() {
        collect();
        showEditor();
    });
    QObject::connect(cmdNext_, &QPushButton::clicked, root, [this]() { move(1); });
    QObject::connect(cmdPrevious_, &QPushButton::clicked, root, [this]() { move(-1); });
    QObject::connect(cmdWrite_, &QToolButton::clicked, root, [this]() { save(1); });
    QObject::connect(saveOper, &QAction::triggered, root, [this]() { save(2); });
    QObject::connect(saveNew, &QAction::triggered, root, [this]() { save(3); });
    QObject::connect(cmdExit_, &QPushButton::clicked, root, [this]() { close(); });

    auto* keys = new CardKeys([this](qint16 result) { save(result); }, root);
    for (QWidget* child : root->findChildren<QWidget*>())
        child->installEventFilter(keys);

    showEditor();
    return root;
}

void FrmBROperRecord::showEditor() {
    if (!editor_ || !root_)
        return;
    filling_ = true;
    const EntryEditor& e = *editor_;
    dtpDate_->setDate(e.Date);
    txtComment_->setText(e.Info);
    txtSuma_->setText(e.Suma);
    cmbTradeOperationTypes_->setCurrentIndex(e.TradeType);
    chkVATFlag_->setChecked(e.VATFlag);
    cmbVATTariff_->setEditText(e.VATTariff);
    cmbVAT_->setCurrentIndex(e.VATIndication);
    for (EntryEditor::Side side : {EntryEditor::Debit, EntryEditor::Credit}) {
        txtRateCurr_[side]->setText(e.Sides[side].Rate);
        txtSumCurr_[side]->setText(e.Sides[side].Sum);
        lvwAddress_[side]->clear();
        for (const EntryEditor::AddresseeLine& line : e.Lines[side]) {
            auto* item = new QTreeWidgetItem(lvwAddress_[side]);
            item->setText(0, line.Name);
            item->setText(1, line.ShowString.isEmpty() ? QStringLiteral(" ") : line.ShowString);
            item->setData(0, ui::QtListControl::KeyRole, line.Kind);
        }
        if (lvwAddress_[side]->topLevelItemCount() > 0 && !lvwAddress_[side]->currentItem())
            lvwAddress_[side]->setCurrentItem(lvwAddress_[side]->topLevelItem(0));
    }
    const QList<QPair<QWidget*, QString>> fields = {
        {chkVATFlag_, QStringLiteral("chkVATFlag")},
        {cmbVATTariff_, QStringLiteral("cmbVATTariff")},
        {cmbTradeOperationTypes_, QStringLiteral("cmbTradeOperationTypes")},
        {txtSuma_, QStringLiteral("txtSuma")},
        {txtComment_, QStringLiteral("txtComment")},
        {dtpDate_, QStringLiteral("dtpDate")},
        {cmbAccount_[0], QStringLiteral("cmbAccountD")},
        {cmbAccount_[1], QStringLiteral("cmbAccountC")},
        {cmbCurr_[0], QStringLiteral("cmbCurrD")},
        {txtRateCurr_[0], QStringLiteral("txtRateCurrD")},
        {txtSumCurr_[0], QStringLiteral("txtSumCurrD")},
        {cmbCurr_[1], QStringLiteral("cmbCurrC")},
        {txtRateCurr_[1], QStringLiteral("txtRateCurrC")},
        {txtSumCurr_[1], QStringLiteral("txtSumCurrC")}};
    for (const auto& [widget, name] : fields)
        widget->setEnabled(e.FieldEnabled(name));
    for (QWidget* w : QList<QWidget*>{cmbVAT_, chkVATFlag_, cmbVATTariff_, lblVAT_})
        w->setEnabled(e.VATEnabled());
    const bool navigation = chkNavigation_->isChecked();
    cmdNext_->setEnabled(navigation);
    cmdPrevious_->setEnabled(navigation);
    filling_ = false;
}

void FrmBROperRecord::collect() {
    EntryEditor& e = *editor_;
    e.Info = txtComment_->text();
    e.Suma = txtSuma_->text();
    for (EntryEditor::Side side : {EntryEditor::Debit, EntryEditor::Credit}) {
        e.Sides[side].Rate = txtRateCurr_[side]->text();
        e.Sides[side].Sum = txtSumCurr_[side]->text();
    }
    e.VATTariff = cmbVATTariff_->currentText();
    e.VATFlag = chkVATFlag_->isChecked();
    e.VATIndication = static_cast<qint16>(qMax(0, cmbVAT_->currentIndex()));
}

void FrmBROperRecord::save(qint16 result) {
    collect();
    if (editor_->SaveWith(result)) {
        close();
        return;
    }
    // The failed check names the field that takes the focus.
    const QString focus = editor_->LastCheck.Focus;
    if (QWidget* field = focus.isEmpty() ? nullptr : root_->findChild<QWidget*>(focus))
        field->setFocus();
}

void FrmBROperRecord::pickAddressee(EntryEditor::Side side, const QString& kind) {
    if (kind.isEmpty())
        return;
    collect();
    const QString answer = Catalogue::SelectAddressee(kind, Catalogue::AddresseeDialogTitle(kind),
                                                      QString(), QString());
    if (answer.isEmpty())
        return;
    const QString foidr = answer.section(QLatin1Char('_'), 0, 0);
    const QString text = answer.section(QLatin1Char('_'), 1);
    if (foidr.size() < 9) {
        ShowWarning(QStringLiteral("Grupės pasirinkti negalima. Pasirinkite adresato reikšmę."));
        return;
    }
    const OrvoObjectUIOPtr op = GetOrvoObjectUIO();
    if (op && foidr == op->OIDR()) {
        ShowWarning(QStringLiteral("Esama operacija negali būti adresatu!"));
        return;
    }
    editor_->SetAddressee(side, kind, foidr, text);
    showEditor();
}

void FrmBROperRecord::clearAddressee(EntryEditor::Side side) {
    QTreeWidget* list = addressList(side);
    if (!list || !list->currentItem())
        return;
    collect();
    editor_->ClearAddressee(side, list->indexOfTopLevelItem(list->currentItem()));
    showEditor();
}

void FrmBROperRecord::move(int step) {
    collect();
    if (editor_->Move(step)) {
        filling_ = true;
        showEditor();
        filling_ = false;
    }
}

void FrmBROperRecord::close() {
    if (root_)
        if (auto* dialog = qobject_cast<QDialog*>(root_->window())) {
            dialog->accept();
            return;
        }
    if (window_)
        window_->UnloadShowOrvoObject();
}

} // namespace orvo
