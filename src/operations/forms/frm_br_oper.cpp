#include "operations/forms/frm_br_oper.h"

#include "accounts/template_choice.h"
#include "core/null_readers.h"
#include "core/number_text.h"
#include "frame/catalogue.h"
#include "frame/messages.h"
#include "frame/orvo_desktop_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "operations/form_access.h"
#include "ui/widgets/entry_list_painter.h"
#include "ui/widgets/number_field.h"
#include "ui/widgets/qt_list_control.h"

#include <QAction>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo {

using ui::EntryListPainter;
using ui::QtListControl;

// Passes the keys the form answers itself (Enter on an entry row, Ctrl+Z in the date,
// Delete in the list) to the form.
class FrmBROperKeys : public QObject {
public:
    FrmBROperKeys(FrmBROper* form, QObject* parent) : QObject(parent), form_(form) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        auto* key = static_cast<QKeyEvent*>(event);
        return form_->eventFilterKey(watched, key->key(), key->modifiers());
    }

private:
    FrmBROper* form_;
};

namespace {

QAction* action(QMenu* menu, const char* name, const QString& text) {
    QAction* a = menu->addAction(text);
    a->setObjectName(QString::fromLatin1(name));
    return a;
}

QPushButton* button(QWidget* parent, const char* name, const QString& text) {
    auto* b = new QPushButton(text, parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setAutoDefault(false);
    return b;
}

QTreeWidget* list(QWidget* parent, const char* name, const QStringList& headers) {
    auto* l = new QTreeWidget(parent);
    l->setObjectName(QString::fromLatin1(name));
    EntryListPainter::SetColumns(l, headers);
    return l;
}

} // namespace

FrmBROper::FrmBROper() : ui::WidgetForm(QStringLiteral("frmBROper")) {}

FrmBROper::~FrmBROper() = default;

QStringList FrmBROper::EntryHeaders() {
    return {QStringLiteral("Data"),     QStringLiteral("Debeto b/s"), QStringLiteral("Kredito b/s"),
            QStringLiteral("Suma, Lt"), QStringLiteral("Valiuta D"),  QStringLiteral("Valiuta K"),
            QStringLiteral("Nuorodos")};
}

QStringList FrmBROper::RelatedHeaders() {
    return {QStringLiteral("Data"),
            QStringLiteral("Debetas"),
            QStringLiteral("Kreditas"),
            QStringLiteral("Suma, Lt"),
            QStringLiteral("Debeto valiuta"),
            QStringLiteral("Kredito valiuta"),
            QStringLiteral("Operacija/Dokumentas")};
}

QWidget* FrmBROper::BuildWidget() {
    editor_ = std::make_unique<OperationEditor>(GetOrvoObjectUIO());
    auto* root = new QWidget;
    root_ = root;
    auto* keys = new FrmBROperKeys(this, root);

    auto* header = new QGridLayout;
    auto* lblDate = new QLabel(QStringLiteral("Data"), root);
    lblDate->setObjectName(QStringLiteral("lblDate"));
    dtpDate_ = new QDateEdit(root);
    dtpDate_->setObjectName(QStringLiteral("dtpDate"));
    dtpDate_->setCalendarPopup(true);
    dtpDate_->setDisplayFormat(QStringLiteral("yyyy.MM.dd"));
    dtpDate_->installEventFilter(keys);
    lblDate->setBuddy(dtpDate_);
    lblNumber_ = new QLabel(QStringLiteral("Numeris"), root);
    lblNumber_->setObjectName(QStringLiteral("lblNumber"));
    lblNumber_->installEventFilter(keys);
    txtSerija_ = new QLineEdit(root);
    txtSerija_->setObjectName(QStringLiteral("txtSerija"));
    txtNumber_ = new QLineEdit(root);
    txtNumber_->setObjectName(QStringLiteral("txtNumber"));
    auto* numbers = new QHBoxLayout;
    numbers->addWidget(txtSerija_);
    numbers->addWidget(txtNumber_);
    header->addWidget(lblDate, 0, 0);
    header->addWidget(dtpDate_, 0, 1);
    header->addWidget(lblNumber_, 0, 2);
    header->addLayout(numbers, 0, 3);

    auto* lblComment = new QLabel(QStringLiteral("Komentaras"), root);
    txtComment_ = new QLineEdit(root);
    txtComment_->setObjectName(QStringLiteral("txtComment"));
    lblComment->setBuddy(txtComment_);
    cmdCommentList_ = button(root, "cmdCommentList", QStringLiteral("..."));
    auto* comment = new QHBoxLayout;
    comment->addWidget(txtComment_);
    comment->addWidget(cmdCommentList_);
    header->addWidget(lblComment, 1, 0);
    header->addLayout(comment, 1, 1, 1, 3);

    auto* lblGroup = new QLabel(QStringLiteral("Grupė"), root);
    txtGroup_ = new QLineEdit(root);
    txtGroup_->setObjectName(QStringLiteral("txtGroup"));
    txtGroup_->setReadOnly(true);
    cmdOperGroup_ = button(root, "cmdOperGroup", QStringLiteral("..."));
    auto* group = new QHBoxLayout;
    group->addWidget(txtGroup_);
    group->addWidget(cmdOperGroup_);
    header->addWidget(lblGroup, 2, 0);
    header->addLayout(group, 2, 1);
    lblVATRegister_ = new QLabel(QStringLiteral("PVM registras"), root);
    lblVATRegister_->setObjectName(QStringLiteral("lblVATRegister"));
    cmbVAT_ = new QComboBox(root);
    cmbVAT_->setObjectName(QStringLiteral("cmbVAT"));
    cmbVAT_->addItems(OperationEditor::VATRegisters());
    header->addWidget(lblVATRegister_, 2, 2);
    header->addWidget(cmbVAT_, 2, 3);

    lvwBRRecords_ = list(root, "lvwBRRecords", EntryHeaders());
    lvwBRRecords_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvwBRRecords_->setContextMenuPolicy(Qt::CustomContextMenu);
    lvwBRRecords_->installEventFilter(keys);

    optBRBalance_ = new QRadioButton(QStringLiteral("Operacijos balansas"), root);
    optBRBalance_->setObjectName(QStringLiteral("optBRBalance"));
    optRelatedBRList_ = new QRadioButton(QStringLiteral("Nuorodos iš kitų operacijų"), root);
    optRelatedBRList_->setObjectName(QStringLiteral("optRelatedBRList"));
    auto* options = new QHBoxLayout;
    options->addWidget(optBRBalance_);
    options->addWidget(optRelatedBRList_);
    options->addStretch();
    views_ = new QStackedWidget(root);
    lvwBalance_ =
        list(root, "lvwBRBalance",
             {QStringLiteral("B/sąskaita"), QStringLiteral("Debetas"), QStringLiteral("Kreditas")});
    lvwRelatedBR_ = list(root, "lvwRelatedBR", RelatedHeaders());
    lvwRelatedBR_->setContextMenuPolicy(Qt::CustomContextMenu);
    views_->addWidget(lvwBalance_);
    views_->addWidget(lvwRelatedBR_);

    cmdPrint_ = button(root, "cmdPrint", QStringLiteral("Spausdinti"));
    cmdWrite_ = button(root, "cmdWrite", QStringLiteral("Įrašyti"));
    cmdCancel_ = button(root, "cmdCancel", QStringLiteral("Atšaukti"));
    SSCNew_ = button(root, "SSCNew", QStringLiteral("Nauja"));
    SSCClose_ = button(root, "SSCClose", QStringLiteral("Uždaryti"));
    SOPanel_ = new QToolButton(root);
    SOPanel_->setObjectName(QStringLiteral("SOPanel"));
    SOPanel_->setText(QStringLiteral("Veiksmai"));
    SOPanel_->setPopupMode(QToolButton::InstantPopup);
    auto* commands = new QHBoxLayout;
    commands->addWidget(SOPanel_);
    commands->addStretch();
    for (QPushButton* b : {cmdPrint_, cmdWrite_, cmdCancel_, SSCNew_, SSCClose_})
        commands->addWidget(b);

    auto* layout = new QVBoxLayout(root);
    layout->addLayout(header);
    layout->addWidget(lvwBRRecords_, 3);
    layout->addLayout(options);
    layout->addWidget(views_, 1);
    layout->addLayout(commands);

    Timer1_ = new QTimer(root);
    Timer1_->setObjectName(QStringLiteral("Timer1"));
    Timer1_->setSingleShot(true);
    Timer1_->setInterval(100);
    QObject::connect(Timer1_, &QTimer::timeout, root, [this]() { runTimer(); });

    buildMenus(root);

    QWidget::setTabOrder(dtpDate_, txtSerija_);
    QWidget::setTabOrder(txtSerija_, txtNumber_);
    QWidget::setTabOrder(txtNumber_, txtComment_);
    QWidget::setTabOrder(txtComment_, cmdCommentList_);
    QWidget::setTabOrder(cmdCommentList_, cmdOperGroup_);
    QWidget::setTabOrder(cmdOperGroup_, cmbVAT_);
    QWidget::setTabOrder(cmbVAT_, lvwBRRecords_);
    QWidget::setTabOrder(lvwBRRecords_, optBRBalance_);
    QWidget::setTabOrder(optBRBalance_, optRelatedBRList_);
    QWidget::setTabOrder(optRelatedBRList_, views_);
    QWidget::setTabOrder(views_, cmdPrint_);
    QWidget::setTabOrder(cmdPrint_, cmdWrite_);
    QWidget::setTabOrder(cmdWrite_, cmdCancel_);
    QWidget::setTabOrder(cmdCancel_, SSCNew_);
    QWidget::setTabOrder(SSCNew_, SSCClose_);
    txtGroup_->setFocusPolicy(Qt::ClickFocus);

    auto* save = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_S), root);
    save->setObjectName(QStringLiteral("shortcutWrite"));
    save->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(save, &QShortcut::activated, root, [this]() {
        if (cmdWrite_->isEnabled())
            write();
    });
    auto* fresh = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_N), root);
    fresh->setObjectName(QStringLiteral("shortcutNew"));
    fresh->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(fresh, &QShortcut::activated, root, [this]() {
        if (SSCNew_->isVisible() && SSCNew_->isEnabled())
            newInGroup();
    });

    QObject::connect(txtComment_, &QLineEdit::textEdited, root, [this]() { fieldEdited(); });
    QObject::connect(txtSerija_, &QLineEdit::textEdited, root, [this]() { fieldEdited(); });
    QObject::connect(txtNumber_, &QLineEdit::textEdited, root, [this]() { fieldEdited(); });
    QObject::connect(cmbVAT_, &QComboBox::activated, root, [this]() { fieldEdited(); });
    QObject::connect(dtpDate_, &QDateEdit::editingFinished, root, [this]() { dateLeft(); });
    QObject::connect(cmdWrite_, &QPushButton::clicked, root, [this]() { write(); });
    QObject::connect(cmdCancel_, &QPushButton::clicked, root, [this]() { cancel(); });
    QObject::connect(SSCNew_, &QPushButton::clicked, root, [this]() { newInGroup(); });
    QObject::connect(SSCClose_, &QPushButton::clicked, root, [this]() {
        if (editor_->ConfirmClose())
            closeForm();
    });
    QObject::connect(cmdPrint_, &QPushButton::clicked, root, [this]() { editor_->Print(); });
    QObject::connect(cmdCommentList_, &QPushButton::clicked, root, [this]() {
        collect();
        editor_->PickComment();
        refresh();
    });
    QObject::connect(cmdOperGroup_, &QPushButton::clicked, root, [this]() {
        collect();
        editor_->PickGroup();
        refresh();
    });
    QObject::connect(lvwBRRecords_, &QTreeWidget::itemDoubleClicked, root,
                     [this](QTreeWidgetItem* item) { openCard(QtListControl::KeyOf(item)); });
    QObject::connect(lvwBRRecords_, &QWidget::customContextMenuRequested, root,
                     [this](const QPoint& at) {
                         mnuMainBR_->popup(lvwBRRecords_->viewport()->mapToGlobal(at));
                     });
    QObject::connect(lvwRelatedBR_, &QWidget::customContextMenuRequested, root,
                     [this](const QPoint& at) {
                         mnuRelatedBR_->popup(lvwRelatedBR_->viewport()->mapToGlobal(at));
                     });
    QObject::connect(optBRBalance_, &QRadioButton::toggled, root, [this](bool on) {
        if (on)
            views_->setCurrentWidget(lvwBalance_);
    });
    QObject::connect(optRelatedBRList_, &QRadioButton::toggled, root, [this](bool on) {
        if (on)
            views_->setCurrentWidget(lvwRelatedBR_);
    });

    editor_->Load(boolModalForm());
    filling_ = true;
    SSCNew_->setVisible(!editor_->Modal);
    SSCClose_->setVisible(!editor_->Modal);
    optBRBalance_->setChecked(true);
    filling_ = false;
    refresh();
    if (editor_->TimerPending)
        Timer1_->start();
    return root;
}

void FrmBROper::buildMenus(QWidget* root) {
    mnuMainBR_ = new QMenu(root);
    mnuMainBR_->setObjectName(QStringLiteral("mnuMainBR"));
    QObject::connect(
        action(mnuMainBR_, "mnuAddTemplate", QStringLiteral("Pridėti įrašus pagal šabloną")),
        &QAction::triggered, root, [this]() { addTemplate(false); });
    QObject::connect(action(mnuMainBR_, "mnuOperTemplate", QStringLiteral("Pakeisti šabloną")),
                     &QAction::triggered, root, [this]() { addTemplate(true); });
    QObject::connect(
        action(mnuMainBR_, "mnuFreeTemplate", QStringLiteral("Pridėti įrašą be šablono")),
        &QAction::triggered, root, [this]() {
            collect();
            const auto followup = editor_->AddFreeEntry();
            refresh();
            follow(followup);
        });
    QObject::connect(action(mnuMainBR_, "mnuBR", QStringLiteral("Įrašo kortelė")),
                     &QAction::triggered, root, [this]() { openSelectedCard(); });
    QObject::connect(
        action(mnuMainBR_, "mnuReferenceD", QStringLiteral("Debeto nuorodos operacija")),
        &QAction::triggered, root, [this]() { showReference(1); });
    QObject::connect(
        action(mnuMainBR_, "mnuReferenceC", QStringLiteral("Kredito nuorodos operacija")),
        &QAction::triggered, root, [this]() { showReference(-1); });
    QObject::connect(
        action(mnuMainBR_, "mnuBRDelete", QStringLiteral("Panaikinti pažymėtus įrašus")),
        &QAction::triggered, root, [this]() {
            editor_->DeleteEntries(selectedGUIDs());
            refresh();
        });
    QObject::connect(action(mnuMainBR_, "mnuDeleteAll", QStringLiteral("Panaikinti visus įrašus")),
                     &QAction::triggered, root, [this]() {
                         collect();
                         editor_->DeleteAllEntries();
                         refresh();
                     });
    QObject::connect(action(mnuMainBR_, "mnuBRCopy", QStringLiteral("Įrašo kopijavimas")),
                     &QAction::triggered, root, [this]() {
                         collect();
                         editor_->CopyEntry(currentGUID());
                         refresh();
                     });
    mnuProtocol_ = action(mnuMainBR_, "mnuProtocol", QStringLiteral("Protokolas"));
    QObject::connect(mnuProtocol_, &QAction::triggered, root,
                     [this]() { editor_->ShowProtocol(); });

    mnuRelatedBR_ = new QMenu(root);
    mnuRelatedBR_->setObjectName(QStringLiteral("mnuRelatedBR"));
    QObject::connect(
        action(mnuRelatedBR_, "mnuOperToDesktop", QStringLiteral("Padėti ant darbo stalo")),
        &QAction::triggered, root, [this]() { relatedToDesktop(); });

    mnuSOPanel_ = new QMenu(root);
    mnuSOPanel_->setObjectName(QStringLiteral("mnuSOPanel"));
    for (const auto& [name, text] : QList<QPair<const char*, QString>>{
             {"mnuDebtsCover", QStringLiteral("Skolų dengimas")},
             {"mnuCurrencyInfluence", QStringLiteral("Valiutos perskaičiavimas")},
             {"mnuCurrencyExchange", QStringLiteral("Valiutos pirkimas / pardavimas")}}) {
        QObject::connect(action(mnuSOPanel_, name, text), &QAction::triggered, root,
                         [this, text]() {
                             collect();
                             editor_->OpenSettlementForm(text);
                             refresh();
                         });
    }
    QObject::connect(action(mnuSOPanel_, "mnuDebtsCoverConverting",
                            QStringLiteral("Skolų dengimas po kovertavimo")),
                     &QAction::triggered, root, [this]() {
                         collect();
                         editor_->DebtsCoverConverting();
                         refresh();
                     });
    QObject::connect(
        action(mnuSOPanel_, "mnuAutoNumber", QStringLiteral("Operacijos eilės numeris")),
        &QAction::triggered, root, [this]() {
            editor_->SetAutoNumberByHand();
            updateCommands();
        });
    SOPanel_->setMenu(mnuSOPanel_);
    // The menus' actions belong to the form too, so that their shortcuts and scripts
    // reach them while the menus are closed.
    root->addActions(mnuMainBR_->actions());
    root->addActions(mnuRelatedBR_->actions());
    root->addActions(mnuSOPanel_->actions());
}

void FrmBROper::refresh() {
    if (!root_ || !editor_)
        return;
    filling_ = true;
    const OperationEditor& e = *editor_;
    root_->setWindowTitle(e.Title);
    if (QWidget* window = root_->window(); window && window != root_)
        window->setWindowTitle(e.Title);
    dtpDate_->setDate(e.Date);
    txtSerija_->setText(e.Serija);
    txtNumber_->setText(e.Number);
    txtComment_->setText(e.Comment);
    txtGroup_->setText(e.GroupText.isEmpty() ? e.GroupRef : e.GroupText);
    cmbVAT_->setCurrentIndex(e.VATIndex);
    cmbVAT_->setVisible(e.VATVisible);
    lblVATRegister_->setVisible(e.VATVisible);
    ui::ArrangeNumberFields(e.ShowSeries, lblNumber_, txtSerija_, txtNumber_);

    const QString current = currentGUID();
    lvwBRRecords_->clear();
    for (const OperationEditor::EntryRow& row : e.Rows) {
        QTreeWidgetItem* item = EntryListPainter::AddBRRow(lvwBRRecords_, row.GUID, row.Cells,
                                                           row.Passed ? EntryListPainter::Plain
                                                                      : EntryListPainter::Marked);
        if (row.GUID == current)
            lvwBRRecords_->setCurrentItem(item);
    }
    if (!lvwBRRecords_->currentItem() && lvwBRRecords_->topLevelItemCount() > 0)
        lvwBRRecords_->setCurrentItem(lvwBRRecords_->topLevelItem(0));

    lvwBalance_->clear();
    for (const OperationEditor::BalanceRow& row : e.Balance()) {
        QTreeWidgetItem* item = EntryListPainter::AddBRRow(
            lvwBalance_, row.Account,
            {row.Account, FormatAmount(row.Debit), FormatAmount(row.Credit)},
            EntryListPainter::Plain);
        QFont bold = item->font(0);
        bold.setBold(true);
        item->setFont(0, bold);
    }

    lvwRelatedBR_->clear();
    if (e.Related) {
        const RecordsetPtr rs = e.Related;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            const QString oidr = NzString(rs->Field(QStringLiteral("OIDR")));
            const qint16 sign = NzInt(rs->Field(QStringLiteral("Sign")));
            EntryListPainter::AddBRRow(
                lvwRelatedBR_,
                Catalogue::RelatedKey(oidr, NzString(rs->Field(QStringLiteral("FOIDR")))),
                {NzDate(rs->Field(QStringLiteral("DateD")), QDate())
                     .toString(QStringLiteral("yyyy.MM.dd")),
                 NzString(rs->Field(QStringLiteral("AccountD"))),
                 NzString(rs->Field(QStringLiteral("AccountC"))),
                 FormatAmount(NzDouble(rs->Field(QStringLiteral("SumA")))), QString(), QString(),
                 oidr + (sign == 1 ? QStringLiteral(" D") : QStringLiteral(" K"))},
                EntryListPainter::Plain);
        }
    }
    filling_ = false;
    updateCommands();
}

void FrmBROper::updateCommands() {
    if (!root_ || !editor_)
        return;
    const OperationEditor& e = *editor_;
    cmdWrite_->setEnabled(e.CanWrite());
    SSCNew_->setEnabled(e.CanNew());
    cmdCancel_->setEnabled(e.CanCancel());
    cmdPrint_->setEnabled(e.PrintEnabled);
    mnuProtocol_->setEnabled(e.ProtocolEnabled);
    optBRBalance_->setEnabled(e.ViewsEnabled);
    optRelatedBRList_->setEnabled(e.ViewsEnabled);
    cmdOperGroup_->setEnabled(e.GroupAndCommentPickEnabled);
    cmdCommentList_->setEnabled(e.GroupAndCommentPickEnabled);
}

void FrmBROper::fieldEdited() {
    if (filling_ || !editor_ || editor_->Suspended)
        return;
    editor_->Changed = true;
    updateCommands();
}

void FrmBROper::collect() {
    OperationEditor& e = *editor_;
    e.Serija = txtSerija_->text();
    e.Number = txtNumber_->text();
    e.Comment = txtComment_->text();
    e.VATIndex = qMax(0, cmbVAT_->currentIndex());
}

void FrmBROper::write() {
    collect();
    editor_->Write();
    refresh();
}

void FrmBROper::cancel() {
    editor_->Cancel();
    refresh();
    if (editor_->ShowRelatedFirst())
        optRelatedBRList_->setChecked(true);
}

void FrmBROper::newInGroup() {
    editor_->NewInGroup();
    optBRBalance_->setChecked(true);
    refresh();
    if (editor_->TimerPending)
        Timer1_->start();
}

void FrmBROper::closeForm() {
    if (root_)
        if (auto* dialog = qobject_cast<QDialog*>(root_->window())) {
            dialog->accept();
            return;
        }
    UnloadShowOrvoObject();
}

void FrmBROper::openCard(const QString& guid) {
    if (guid.isEmpty())
        return;
    collect();
    const auto followup = editor_->OpenEntryCard(guid);
    refresh();
    follow(followup);
}

void FrmBROper::openSelectedCard() {
    openCard(currentGUID());
}

void FrmBROper::follow(OperationEditor::CardFollowup followup) {
    if (followup == OperationEditor::CardFollowup::None)
        return;
    write();
    if (followup == OperationEditor::CardFollowup::WriteAndNew && SSCNew_->isVisible() &&
        !editor_->IsNew() && !editor_->Changed)
        newInGroup();
}

void FrmBROper::runTimer() {
    collect();
    const auto followup = editor_->RunNextAction();
    refresh();
    follow(followup);
}

void FrmBROper::dateLeft() {
    if (filling_ || !editor_ || editor_->Suspended)
        return;
    collect();
    const QDate date = dtpDate_->date();
    if (!editor_->ChangeDate(date)) {
        filling_ = true;
        dtpDate_->setDate(editor_->Date);
        filling_ = false;
    }
    refresh();
}

void FrmBROper::addTemplate(bool replace) {
    collect();
    const QString name = QStringLiteral("frmBROperTemplateSelect");
    const OrvoServicesPtr services = OrvoS();
    const FormsPtr forms = services ? services->FormsService() : nullptr;
    const OrvoFormPtr form = forms ? forms->CreateForm(name) : nullptr;
    const auto chooser = std::dynamic_pointer_cast<TemplateChooserForm>(form);
    if (!chooser) {
        ShowWarning(FormAccess::Unavailable(name).Text);
        return;
    }
    form->SetOrvoObjectUIO(editor_->Object());
    form->Show(true);
    const TemplateChoiceResult choice = chooser->Choice();
    if (choice.Chosen)
        editor_->ApplyTemplate(replace, static_cast<qint32>(choice.TemplateID), choice.Sum);
    refresh();
}

void FrmBROper::showReference(qint16 sign) {
    const QString guid = currentGUID();
    const OrvoObjectUIOPtr op = editor_->Object();
    const RecordsetPtr br = op ? op->Field(QStringLiteral("BR")).toRecordset() : nullptr;
    if (!br || guid.isEmpty() ||
        !Catalogue::TryFilter(br, QStringLiteral("GUID = '") + guid + QStringLiteral("'")))
        return;
    QString reference;
    if (const RecordsetPtr props = br->Field(QStringLiteral("BRProperties")).toRecordset())
        for (props->MoveFirst(); !props->Eof() && reference.isEmpty(); props->MoveNext()) {
            const QString foidr = NzString(props->Field(QStringLiteral("FOIDR")));
            const bool debit = NzInt(props->Field(QStringLiteral("Sign"))) == 1;
            if (foidr.startsWith(QLatin1String("O0201500")) && debit == (sign == 1))
                reference = foidr;
        }
    br->SetFilter(QString());
    if (reference.isEmpty())
        return;
    OrvoObjectUIOPtr none;
    if (const OrvoFormPtr form = Catalogue::OpenOperationForm(reference, none))
        form->Show(false);
}

void FrmBROper::relatedToDesktop() {
    QTreeWidgetItem* item = lvwRelatedBR_->currentItem();
    if (!item)
        return;
    const QString oidr = Catalogue::SplitRelatedKey(QtListControl::KeyOf(item)).first;
    OrvoObjectUIOPtr none;
    const OrvoFormPtr form = Catalogue::OpenOperationForm(oidr, none);
    const OrvoServicesPtr services = OrvoS();
    if (form && services && services->DeskTopService())
        services->DeskTopService()->AddForm(form);
}

QStringList FrmBROper::selectedGUIDs() const {
    QStringList guids;
    for (QTreeWidgetItem* item : lvwBRRecords_->selectedItems())
        guids.append(QtListControl::KeyOf(item));
    if (guids.isEmpty() && lvwBRRecords_->currentItem())
        guids.append(QtListControl::KeyOf(lvwBRRecords_->currentItem()));
    return guids;
}

QString FrmBROper::currentGUID() const {
    return lvwBRRecords_ ? QtListControl::KeyOf(lvwBRRecords_->currentItem()) : QString();
}

bool FrmBROper::eventFilterKey(QObject* watched, int key, Qt::KeyboardModifiers modifiers) {
    if (watched == lvwBRRecords_ && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        openSelectedCard();
        return true;
    }
    if (watched == lvwBRRecords_ && key == Qt::Key_Delete) {
        collect();
        editor_->DeleteEntries(selectedGUIDs());
        refresh();
        return true;
    }
    if (watched == dtpDate_ && key == Qt::Key_Z && (modifiers & Qt::ControlModifier)) {
        addTemplate(false);
        if (editor_->NextAction == QLatin1String("TemplateBR"))
            runTimer();
        return true;
    }
    return false;
}

} // namespace orvo
