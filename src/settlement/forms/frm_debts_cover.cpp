#include "settlement/forms/frm_debts_cover.h"

#include "core/number_text.h"
#include "frame/catalogue_accounts.h"
#include "frame/catalogue_addressees.h"
#include "frame/catalogue_data_access.h"
#include "frame/inputs.h"
#include "frame/messages.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "operations/forms/frm_br_oper.h"
#include "settlement/debts_cover_act.h"
#include "settlement/forms/debts_cover_act_page.h"
#include "ui/services/report_window.h"
#include "ui/shell/desk_top.h"
#include "ui/widgets/entry_list_painter.h"
#include "ui/widgets/qt_combo_control.h"

#include <QAction>
#include <QButtonGroup>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo {

namespace {

template <typename T> T* named(T* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QPushButton* button(QWidget* parent, const char* name, const QString& text) {
    auto* b = named(new QPushButton(text, parent), name);
    b->setAutoDefault(false);
    return b;
}

QAction* action(QMenu* menu, const char* name, const QString& text) {
    QAction* a = menu->addAction(text);
    a->setObjectName(QString::fromLatin1(name));
    return a;
}

// Enter on a row of a list means the sum entry.
class EnterKey : public QObject {
public:
    EnterKey(QObject* parent, std::function<void()> onEnter)
        : QObject(parent), onEnter_(std::move(onEnter)) {}

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return false;
        onEnter_();
        return true;
    }

private:
    std::function<void()> onEnter_;
};

} // namespace

FrmDebtsCover::FrmDebtsCover() : ui::WidgetForm(QStringLiteral("frmDebtsCover")) {}

FrmDebtsCover::~FrmDebtsCover() = default;

QWidget* FrmDebtsCover::buildSide(QWidget* root, Side& s, bool primary) {
    const char* letter = primary ? "C" : "D";
    const auto name = [letter](const char* stem) -> QByteArray {
        return QByteArray(stem) + letter;
    };
    auto* box = new QGroupBox(root);
    s.txtAddr = named(new QLineEdit(box), name("txtAddr").constData());
    s.txtAddr->setReadOnly(true);
    s.cmdAddr = button(box, name("cmdAddr").constData(), QStringLiteral("..."));
    s.cmdCleanAddr = button(box, name("cmdCleanAddr").constData(), QStringLiteral("X"));
    s.cmbAcc = named(new QComboBox(box), name("cmbAcc").constData());
    s.cmbAcc->setEditable(true);
    s.cmbAcc->setInsertPolicy(QComboBox::NoInsert);
    s.optDeb = named(new QRadioButton(QStringLiteral("Debetas"), box), name("optDeb").constData());
    s.optCred =
        named(new QRadioButton(QStringLiteral("Kreditas"), box), name("optCred").constData());
    auto* sides = new QButtonGroup(box);
    sides->addButton(s.optDeb);
    sides->addButton(s.optCred);
    s.lvw = named(new QTreeWidget(box), primary ? "lvwBRPrimary" : "lvwBRSecondary");
    s.lvw->setRootIsDecorated(false);
    s.lvw->setContextMenuPolicy(Qt::CustomContextMenu);
    s.lvw->setHeaderLabels(DebtsCoverList::Captions(Catalogue::GetBaseCurrency().toString()));
    s.txtSum = named(new QLineEdit(box), name("txtSum").constData());
    s.txtSum->setReadOnly(true);
    s.lblCurrCode = named(new QLabel(box), name("lblCurrCode").constData());
    s.optAll =
        named(new QRadioButton(QStringLiteral("Parinkti viską"), box), name("optAll").constData());
    s.optDrop =
        named(new QRadioButton(QStringLiteral("Atšaukti"), box), name("optDrop").constData());
    auto* checks = new QButtonGroup(box);
    checks->addButton(s.optAll);
    checks->addButton(s.optDrop);

    auto* top = new QHBoxLayout;
    top->addWidget(s.txtAddr, 1);
    top->addWidget(s.cmdAddr);
    top->addWidget(s.cmdCleanAddr);
    top->addWidget(s.cmbAcc, 1);
    top->addWidget(s.optDeb);
    top->addWidget(s.optCred);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(s.optAll);
    bottom->addWidget(s.optDrop);
    bottom->addStretch();
    bottom->addWidget(new QLabel(QStringLiteral("Dengimo suma:"), box));
    bottom->addWidget(s.txtSum);
    bottom->addWidget(s.lblCurrCode);
    auto* layout = new QVBoxLayout(box);
    layout->addLayout(top);
    layout->addWidget(s.lvw, 1);
    layout->addLayout(bottom);

    QObject::connect(s.cmdAddr, &QPushButton::clicked, root,
                     [this, primary]() { pickAddressee(primary); });
    QObject::connect(s.cmdCleanAddr, &QPushButton::clicked, root, [this, primary]() {
        cover_->ClearAddressee(primary);
        refresh();
    });
    QObject::connect(s.cmbAcc, &QComboBox::activated, root, [this]() { readAccounts(); });
    QObject::connect(s.cmbAcc->lineEdit(), &QLineEdit::editingFinished, root,
                     [this]() { readAccounts(); });
    QObject::connect(s.optDeb, &QRadioButton::toggled, root, [this, primary](bool on) {
        if (on)
            sideChanged(primary, true);
    });
    QObject::connect(s.optCred, &QRadioButton::toggled, root, [this, primary](bool on) {
        if (on)
            sideChanged(primary, false);
    });
    QObject::connect(s.lvw, &QTreeWidget::itemChanged, root,
                     [this, primary](QTreeWidgetItem* item) { itemChanged(primary, item); });
    QObject::connect(s.lvw, &QTreeWidget::itemDoubleClicked, root,
                     [this, primary, &s](QTreeWidgetItem* item) {
                         enterSum(primary, s.lvw->indexOfTopLevelItem(item));
                     });
    QObject::connect(s.lvw, &QTreeWidget::customContextMenuRequested, root,
                     [this, primary](const QPoint& at) { openRowMenu(primary, at); });
    s.lvw->installEventFilter(new EnterKey(s.lvw, [this, primary, &s]() {
        enterSum(primary, s.lvw->indexOfTopLevelItem(s.lvw->currentItem()));
    }));
    QObject::connect(s.optAll, &QRadioButton::clicked, root,
                     [this, primary]() { checkAll(primary, true); });
    QObject::connect(s.optDrop, &QRadioButton::clicked, root,
                     [this, primary]() { checkAll(primary, false); });
    return box;
}

QWidget* FrmDebtsCover::BuildWidget() {
    cover_ = std::make_unique<DebtsCover>(GetOrvoObjectUIO());
    auto* root = new QWidget;
    root_ = root;
    root->setWindowTitle(QStringLiteral(" Skolų dengimas"));
    root->resize(1100, 700);

    lblFirms_ = named(new QLabel(QStringLiteral("Įmonės"), root), "lblFirms");
    cmbAddr_ = named(new QComboBox(root), "cmbAddr");
    auto* lblVariants = new QLabel(QStringLiteral("Šablonai"), root);
    cmbVariants_ = named(new QComboBox(root), "cmbVariants");
    cmdVariants_ = button(root, "cmdVariants", QStringLiteral("..."));
    auto* lblDate = new QLabel(QStringLiteral("Dengimo data:"), root);
    dtpDate_ = named(new QDateEdit(root), "dtpDate");
    dtpDate_->setCalendarPopup(true);
    dtpDate_->setDisplayFormat(QStringLiteral("yyyy.MM.dd"));
    optDateByBROper_ =
        named(new QRadioButton(QStringLiteral("Operacijos data"), root), "optDateByBROper");
    optDateByCoveredOperations_ =
        named(new QRadioButton(QStringLiteral("Vėliausia sudengiamųjų operacijų data"), root),
              "optDateByCoveredOperations");
    auto* dates = new QButtonGroup(root);
    dates->addButton(optDateByBROper_);
    dates->addButton(optDateByCoveredOperations_);
    optDateByBROper_->setChecked(true);

    auto* header = new QGridLayout;
    header->addWidget(lblFirms_, 0, 0);
    header->addWidget(cmbAddr_, 0, 1, 1, 3);
    header->addWidget(lblVariants, 1, 0);
    header->addWidget(cmbVariants_, 1, 1);
    header->addWidget(cmdVariants_, 1, 2);
    header->addWidget(lblDate, 2, 0);
    header->addWidget(dtpDate_, 2, 1);
    header->addWidget(optDateByBROper_, 2, 2);
    header->addWidget(optDateByCoveredOperations_, 2, 3);

    QWidget* primaryBox = buildSide(root, primary_, true);
    QWidget* secondaryBox = buildSide(root, secondary_, false);

    cmdGo_ = button(root, "cmdGo", QStringLiteral("Užpildyti"));
    cmdGo_->setContextMenuPolicy(Qt::CustomContextMenu);
    cmdOK_ = button(root, "cmdOK", QStringLiteral("Išsaugoti"));
    cmdPrint_ = button(root, "cmdPrint", QStringLiteral("Spausdinti"));
    cmdExit_ = button(root, "cmdExit", cover_->exitCaption);
    lblStatus_ = named(new QLabel(root), "lblStatus");
    auto* commands = new QHBoxLayout;
    commands->addWidget(lblStatus_, 1);
    for (QPushButton* b : {cmdGo_, cmdOK_, cmdPrint_, cmdExit_})
        commands->addWidget(b);

    auto* layout = new QVBoxLayout(root);
    layout->addLayout(header);
    layout->addWidget(primaryBox, 1);
    layout->addWidget(secondaryBox, 1);
    layout->addLayout(commands);
    buildMenus(root);

    cover_->StatusChanged = [this](const QString& text) {
        if (lblStatus_)
            lblStatus_->setText(text);
    };
    cover_->OperationChanged = [this]() { syncEditor(); };

    QObject::connect(dtpDate_, &QDateEdit::dateChanged, root, [this](const QDate& date) {
        if (loading_)
            return;
        cover_->SetDate(date);
        refresh();
    });
    QObject::connect(optDateByCoveredOperations_, &QRadioButton::toggled, root,
                     [this](bool on) { cover_->dateByCovered = on; });
    QObject::connect(cmbAddr_, &QComboBox::activated, root, [this](int index) {
        if (loading_)
            return;
        cover_->ChooseAddressee(index);
        refresh();
    });
    QObject::connect(cmbVariants_, &QComboBox::activated, root, [this](int index) {
        if (loading_ || index < 0)
            return;
        cover_->ChooseVariant(cmbVariants_->itemText(index));
        refresh();
    });
    QObject::connect(cmdVariants_, &QPushButton::clicked, root, [this]() {
        mnuVariants_->popup(cmdVariants_->mapToGlobal(QPoint(0, cmdVariants_->height())));
    });
    QObject::connect(cmdGo_, &QPushButton::clicked, root, [this]() {
        if (cover_->addrPrimary.isEmpty() && cover_->addrSecondary.isEmpty())
            listAddressees(cover_->addresseeKind);
        else
            fill();
    });
    QObject::connect(cmdGo_, &QPushButton::customContextMenuRequested, root,
                     [this](const QPoint& at) { mnuAddr_->popup(cmdGo_->mapToGlobal(at)); });
    QObject::connect(cmdOK_, &QPushButton::clicked, root, [this]() { save(); });
    QObject::connect(cmdPrint_, &QPushButton::clicked, root, [this]() { print(); });
    QObject::connect(cmdExit_, &QPushButton::clicked, root, [this]() { close(); });

    cover_->Open();
    loading_ = true;
    dtpDate_->setDate(cover_->coverDate);
    for (Side* s : {&primary_, &secondary_}) {
        ui::QtComboControl combo(s->cmbAcc);
        s->accounts = cover_->accounts;
        Catalogue::FillAccountCombo(combo, s->accounts, QString());
        s->cmbAcc->setCurrentIndex(-1);
        s->cmbAcc->setEditText(QString());
    }
    cmbVariants_->addItems(cover_->variants);
    cmbVariants_->setCurrentIndex(-1);
    loading_ = false;
    refresh();
    return root;
}

void FrmDebtsCover::buildMenus(QWidget* root) {
    mnuVariants_ = named(new QMenu(root), "mnuVariants");
    QObject::connect(
        action(mnuVariants_, "mnuAddVariant", QStringLiteral("Išsaugoti sąskaitų korespondenciją")),
        &QAction::triggered, root, [this]() {
            readAccounts();
            if (!cover_->SaveVariant())
                return;
            loading_ = true;
            cmbVariants_->addItem(cover_->variants.last());
            cmbVariants_->setCurrentIndex(cmbVariants_->count() - 1);
            loading_ = false;
        });
    QObject::connect(
        action(mnuVariants_, "mnuDeleteVariant", QStringLiteral("Panaikinti variantą")),
        &QAction::triggered, root, [this]() {
            const int index = cmbVariants_->currentIndex();
            if (index < 0)
                return;
            cover_->DeleteVariant(index);
            loading_ = true;
            cmbVariants_->removeItem(index);
            cmbVariants_->setCurrentIndex(-1);
            loading_ = false;
        });
    mnuAddr_ = named(new QMenu(root), "mnuAddr");
    for (const auto& [name, kind] :
         QList<QPair<const char*, QString>>{{"mnuFirm", QStringLiteral("O0000100")},
                                            {"mnuPerson", QStringLiteral("O0001402")},
                                            {"mnuPersonal", QStringLiteral("O0001401")}})
        QObject::connect(action(mnuAddr_, name, DebtsCover::KindLabel(kind)), &QAction::triggered,
                         root, [this, kind]() { listAddressees(kind); });
    mnuInput_ = named(new QMenu(root), "mnuInput");
    mnuSum_ = action(mnuInput_, "mnuSum", QStringLiteral("Sumos įvedimas"));
    mnuRates_ = action(mnuInput_, "mnuRates", QStringLiteral("Kurso įvedimas"));
    QObject::connect(mnuSum_, &QAction::triggered, root,
                     [this]() { enterSum(menuPrimary_, menuRow_); });
    QObject::connect(mnuRates_, &QAction::triggered, root,
                     [this]() { inputRate(menuPrimary_, menuRow_); });
    // The menus' actions belong to the window too, so scripts reach them while closed.
    for (QMenu* menu : {mnuVariants_, mnuAddr_, mnuInput_})
        root->addActions(menu->actions());
}

void FrmDebtsCover::refresh() {
    if (!root_)
        return;
    loading_ = true;
    const DebtsCover& c = *cover_;
    lblFirms_->setText(c.firmsLabel.isEmpty() ? DebtsCover::KindLabel(c.addresseeKind)
                                              : c.firmsLabel);
    cmbAddr_->clear();
    cmbAddr_->addItems(c.addresseeTexts);
    cmbAddr_->setCurrentIndex(c.addresseeIndex);
    primary_.txtAddr->setText(c.addrPrimaryText);
    secondary_.txtAddr->setText(c.addrSecondaryText);
    for (bool p : {true, false}) {
        Side& s = side(p);
        const QString account = p ? c.accountPrimary : c.accountSecondary;
        if (FirstWord(s.cmbAcc->currentText()) != account) {
            const int at = s.cmbAcc->findText(account + QLatin1Char(' '), Qt::MatchStartsWith);
            s.cmbAcc->setCurrentIndex(at);
            if (at < 0)
                s.cmbAcc->setEditText(account);
        }
        const bool debit = p ? c.primaryDebit : !c.primaryDebit;
        s.optDeb->setChecked(debit);
        s.optCred->setChecked(!debit);
        s.optAll->setAutoExclusive(false);
        s.optDrop->setAutoExclusive(false);
        s.optAll->setChecked(false);
        s.optDrop->setChecked(false);
        s.optAll->setAutoExclusive(true);
        s.optDrop->setAutoExclusive(true);
        paintList(p);
    }
    if (dtpDate_->date() != c.coverDate)
        dtpDate_->setDate(c.coverDate);
    dtpDate_->setEnabled(!c.dateLocked);
    cmdExit_->setText(c.exitCaption);
    loading_ = false;
    paintSums();
    updateCommands();
}

void FrmDebtsCover::paintList(bool primary) {
    const bool was = loading_;
    loading_ = true;
    QTreeWidget* lvw = side(primary).lvw;
    const int current = lvw->indexOfTopLevelItem(lvw->currentItem());
    lvw->clear();
    for (const DebtsCoverRow& row : list(primary).Rows()) {
        auto* item = new QTreeWidgetItem(lvw);
        item->setText(0, row.DateText());
        item->setData(0, Qt::UserRole, row.Key);
        const QStringList cells = DebtsCoverList::Cells(row);
        for (int c = 0; c < cells.size(); ++c)
            item->setText(c + 1, cells[c]);
        for (int c = 2; c <= 9; ++c)
            if (c != 4 && c != 7)
                item->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
        if (row.CodeRed())
            item->setForeground(4, QColor(255, 0, 0));
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(0, row.Checked ? Qt::Checked : Qt::Unchecked);
    }
    if (current >= 0 && current < lvw->topLevelItemCount())
        lvw->setCurrentItem(lvw->topLevelItem(current));
    side(primary).lblCurrCode->setText(Catalogue::GetBaseCurrency().toString());
    loading_ = was;
}

void FrmDebtsCover::paintSums() {
    primary_.txtSum->setText(DebtsCover::SumText(cover_->primary.PaymentSum()));
    secondary_.txtSum->setText(DebtsCover::SumText(cover_->secondary.PaymentSum()));
}

void FrmDebtsCover::updateCommands() {
    const bool can = cover_->CanSave();
    cmdOK_->setEnabled(can);
    cmdPrint_->setEnabled(can);
    cmdGo_->setEnabled(true);
}

void FrmDebtsCover::readAccounts() {
    if (loading_)
        return;
    cover_->SetAccounts(FirstWord(primary_.cmbAcc->currentText()),
                        FirstWord(secondary_.cmbAcc->currentText()));
    refresh();
}

void FrmDebtsCover::sideChanged(bool primary, bool debit) {
    if (loading_)
        return;
    // The two sides are tied crosswise: one is always debit, the other credit.
    cover_->SetPrimaryDebit(primary ? debit : !debit);
    refresh();
}

void FrmDebtsCover::pickAddressee(bool primary) {
    const QString current = primary ? cover_->addrPrimary : cover_->addrSecondary;
    const QString kind = current.size() >= 8 ? current.left(8) : QStringLiteral("O0000100");
    const QString answer = Catalogue::SelectAddressee(kind, Catalogue::AddresseeDialogTitle(kind),
                                                      QString(), QString());
    if (answer.isEmpty())
        return;
    const int underscore = answer.indexOf(QLatin1Char('_'));
    const QString reference = underscore < 0 ? answer : answer.left(underscore);
    const QString text = underscore < 0 ? answer : answer.mid(underscore + 1);
    cover_->SetAddressee(primary, reference, text);
    refresh();
}

void FrmDebtsCover::fill() {
    readAccounts();
    for (QPushButton* b : {cmdOK_, cmdGo_, cmdPrint_})
        b->setEnabled(false);
    cover_->Fill();
    refresh();
}

void FrmDebtsCover::listAddressees(const QString& kind) {
    readAccounts();
    for (QPushButton* b : {cmdOK_, cmdGo_, cmdPrint_})
        b->setEnabled(false);
    if (cover_->ListAddressees(kind))
        cover_->ChooseAddressee(0);
    refresh();
}

void FrmDebtsCover::itemChanged(bool primary, QTreeWidgetItem* item) {
    if (loading_ || !item)
        return;
    const int row = side(primary).lvw->indexOfTopLevelItem(item);
    if (item->checkState(0) == Qt::Checked)
        list(primary).Check(row);
    else
        list(primary).Uncheck(row);
    paintList(primary);
    paintSums();
    updateCommands();
}

void FrmDebtsCover::checkAll(bool primary, bool all) {
    if (loading_)
        return;
    all ? list(primary).CheckAll() : list(primary).DropAll();
    paintList(primary);
    paintSums();
    updateCommands();
}

void FrmDebtsCover::enterSum(bool primary, int row) {
    DebtsCoverList& l = list(primary);
    if (row < 0 || row >= l.Count())
        return;
    const DebtsCoverRow& r = l.Rows()[row];
    const OrvoServicesPtr services = OrvoS();
    const InputsPtr inputs = services ? services->InputsService() : nullptr;
    if (!inputs)
        return;
    const QString title = r.HasCurrency() ? r.CurrencyCode + QStringLiteral(" sumos įvedimas")
                                          : QStringLiteral("Sumos įvedimas");
    const double whole = CoverCellValue(r.LikutisLt + r.PaymentLt);
    const std::optional<QString> typed = inputs->InputBox(
        r.DocText(), title, DebtsCover::SumText(r.PaymentLt > 0 ? r.PaymentLt : whole));
    if (!typed)
        return;
    const double base = qMin(CoverCellValue(NumberFromText(*typed)), whole);
    l.EnterSum(row, base, DebtsCoverList::CurrencyOf(r, base));
    paintList(primary);
    paintSums();
    updateCommands();
}

void FrmDebtsCover::inputRate(bool primary, int row) {
    if (cover_->InputRate(primary, row))
        refresh();
}

void FrmDebtsCover::openRowMenu(bool primary, const QPoint& at) {
    QTreeWidget* lvw = side(primary).lvw;
    QTreeWidgetItem* item = lvw->itemAt(at);
    if (!item)
        return;
    menuPrimary_ = primary;
    menuRow_ = lvw->indexOfTopLevelItem(item);
    const DebtsCoverRow& row = list(primary).Rows()[menuRow_];
    const bool currency = row.HasCurrency();
    mnuSum_->setText(currency ? row.CurrencyCode + QStringLiteral(" sumos įvedimas")
                              : QStringLiteral("Sumos įvedimas"));
    mnuRates_->setText(currency ? row.CurrencyCode + QStringLiteral(" kurso įvedimas")
                                : QStringLiteral("Kurso įvedimas"));
    mnuRates_->setEnabled(currency);
    mnuInput_->popup(lvw->viewport()->mapToGlobal(at));
}

void FrmDebtsCover::save() {
    cmdOK_->setEnabled(false);
    cover_->Save();
    refresh();
}

void FrmDebtsCover::print() {
    const DebtsCoverAct act = DebtsCoverAct::Make(*cover_, DebtsCoverAct::OwnFirm(),
                                                  DebtsCoverAct::FirmOf(cover_->addrPrimary));
    QString error;
    const QByteArray pdf = DebtsCoverActPage::Render(act, &error);
    if (pdf.isEmpty()) {
        ShowError(error);
        return;
    }
    const OrvoServicesPtr services = OrvoS();
    ui::ReportExport toPdf;
    toPdf.Caption = QStringLiteral("Eksportas į PDF");
    toPdf.ObjectName = QStringLiteral("cmdExportPdf");
    toPdf.Filter = QStringLiteral("PDF dokumentai (*.pdf)");
    toPdf.Suffix = QStringLiteral(".pdf");
    toPdf.Write = [act](const QString& path) { return DebtsCoverActPage::Write(act, path); };
    ui::ReportWindow::Show(pdf, act.Title, QStringLiteral("Uzskaitymo_aktas"), {toPdf},
                           services ? services->FileDialogsService() : nullptr,
                           services ? services->MessagesService() : nullptr, root_);
}

void FrmDebtsCover::close() {
    if (root_)
        if (auto* dialog = qobject_cast<QDialog*>(root_->window()))
            dialog->accept();
    UnloadShowOrvoObject();
}

void FrmDebtsCover::syncEditor() {
    // An editor open on the same operation shows its new date, comment and entries.
    ui::DeskTop* desk = ui::DeskTop::Current();
    if (!desk)
        return;
    const OrvoObjectUIOPtr op = cover_->Object();
    for (const OrvoFormPtr& form : desk->Forms()) {
        auto editor = std::dynamic_pointer_cast<FrmBROper>(form);
        if (!editor || !editor->Editor() || editor->Editor()->Object() != op)
            continue;
        OperationEditor& e = *editor->Editor();
        e.LoadFields();
        e.PaintEntries();
        e.Changed = true;
        if (QWidget* w = editor->HasWidget() ? editor->Widget() : nullptr) {
            if (auto* date = w->findChild<QDateEdit*>(QStringLiteral("dtpDate"))) {
                const QSignalBlocker quiet(date);
                date->setDate(e.Date);
            }
            if (auto* comment = w->findChild<QLineEdit*>(QStringLiteral("txtComment"))) {
                const QSignalBlocker quiet(comment);
                comment->setText(e.Comment);
            }
            if (auto* entries = w->findChild<QTreeWidget*>(QStringLiteral("lvwBRRecords"))) {
                entries->clear();
                for (const OperationEditor::EntryRow& row : e.Rows)
                    ui::EntryListPainter::AddBRRow(entries, row.GUID, row.Cells,
                                                   row.Passed ? ui::EntryListPainter::Plain
                                                              : ui::EntryListPainter::Marked);
            }
        }
    }
}

} // namespace orvo
