#include "accounts/forms/group_form.h"

#include "accounts/forms/form_support.h"
#include "core/null_readers.h"
#include "core/today.h"
#include "frame/memory_tree_control.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <climits>

namespace orvo::accounts_forms {

namespace {

QDateEdit* dateBox(const QString& name, QWidget* parent) {
    auto* box = new QDateEdit(parent);
    box->setObjectName(name);
    box->setDisplayFormat(QStringLiteral("yyyy.MM.dd"));
    box->setCalendarPopup(true);
    return box;
}

QPushButton* button(const QString& name, const QString& caption, QWidget* parent) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    return b;
}

QLineEdit* lineBox(const QString& name, QWidget* parent, bool readOnly = false) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setReadOnly(readOnly);
    return box;
}

} // namespace

FrmBROperGroup::~FrmBROperGroup() = default;

QWidget* FrmBROperGroup::BuildWidget() {
    editor_ = std::make_unique<GroupEditor>(GetOrvoObjectUIO());
    editor_->Load();

    root_ = new QWidget;
    root_->setWindowTitle(Caption());
    root_->setMinimumWidth(640);
    auto* column = new QVBoxLayout(root_);
    title_ = new QLabel(root_);
    title_->setObjectName(QStringLiteral("lblTitle"));
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    column->addWidget(title_);

    auto* names = new QFormLayout;
    name_ = lineBox(QStringLiteral("txtName"), root_);
    parent_ = lineBox(QStringLiteral("txtParentGroup"), root_, true);
    parent_->setFocusPolicy(Qt::ClickFocus);
    names->addRow(QStringLiteral("Grupės pavadinimas"), name_);
    names->addRow(QStringLiteral("Aukštesnio lygio grupė"), parent_);
    column->addLayout(names);

    operationsPart_ = new QWidget(root_);
    operationsPart_->setObjectName(QStringLiteral("SSFrameOperations"));
    auto* operations = new QVBoxLayout(operationsPart_);
    operations->setContentsMargins(0, 0, 0, 0);
    operations->addWidget(buildHeader());
    tabs_ = new QTabWidget(operationsPart_);
    tabs_->setObjectName(QStringLiteral("TabStrip"));
    tabs_->addTab(buildTemplatesTab(), GroupEditor::TabCaption(QStringLiteral("Templates")));
    tabs_->addTab(buildAutoNumberTab(), GroupEditor::TabCaption(QStringLiteral("Autonumber")));
    tabs_->addTab(buildDebtsTab(), GroupEditor::TabCaption(QStringLiteral("DebtSettings")));
    operations->addWidget(tabs_, 1);
    column->addWidget(operationsPart_, 1);

    auto* buttons = new QHBoxLayout;
    write_ = button(QStringLiteral("cmdWrite"), QStringLiteral("Įrašyti"), root_);
    auto* close = button(QStringLiteral("SSCClose"), QStringLiteral("Uždaryti"), root_);
    buttons->addStretch(1);
    buttons->addWidget(write_);
    buttons->addWidget(close);
    column->addLayout(buttons);

    QWidget::setTabOrder(name_, formType_);
    QWidget::setTabOrder(formType_, parameters_);
    QWidget::setTabOrder(parameters_, numByAcc_);
    QWidget::setTabOrder(numByAcc_, serijaIndication_);
    QWidget::setTabOrder(serijaIndication_, serija_);
    QWidget::setTabOrder(serija_, accountCode_);
    QWidget::setTabOrder(accountCode_, accountSettings_);
    QWidget::setTabOrder(accountSettings_, tabs_);
    QWidget::setTabOrder(write_, close);

    auto* save = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_S), root_);
    save->setObjectName(QStringLiteral("shortcutWrite"));
    save->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(save, &QShortcut::activated, root_, [this]() {
        if (write_->isEnabled())
            Write();
    });
    QObject::connect(write_, &QPushButton::clicked, root_, [this]() { Write(); });
    QObject::connect(close, &QPushButton::clicked, root_, [this]() { CloseForm(); });
    connectChanges();

    fill();
    return root_;
}

QWidget* FrmBROperGroup::buildHeader() {
    auto* header = new QWidget(operationsPart_);
    auto* grid = new QGridLayout(header);
    grid->setContentsMargins(0, 0, 0, 0);
    formType_ = new QComboBox(header);
    formType_->setObjectName(QStringLiteral("cmbFormType"));
    for (const GroupEditor::FormType& t : editor_->FormTypes())
        formType_->addItem(t.Name, t.OID);
    parameters_ = button(QStringLiteral("cmdParameters"), QStringLiteral("Parametrai"), header);
    numByAcc_ = new QCheckBox(QStringLiteral("Numeruoti pagal banko sąskaitas"), header);
    numByAcc_->setObjectName(QStringLiteral("chkNumByAcc"));
    serijaIndication_ = new QCheckBox(QStringLiteral("Serija"), header);
    serijaIndication_->setObjectName(QStringLiteral("chkSerijaIndication"));
    serija_ = lineBox(QStringLiteral("txtSerija"), header);
    accountCode_ = lineBox(QStringLiteral("txtAccountCode"), header);
    accountSettings_ = new QTreeWidget(header);
    accountSettings_->setObjectName(QStringLiteral("lvwAccountSettings"));
    accountSettings_->setHeaderLabels({QStringLiteral("Nustatymo pavadinimas"),
                                       QStringLiteral("Sąskaitos Nr."),
                                       QStringLiteral("Sąskaitos pavadinimas")});
    accountSettings_->setRootIsDecorated(false);
    accountSettings_->setColumnWidth(0, 220);
    accountSettings_->setMaximumHeight(150);

    grid->addWidget(new QLabel(QStringLiteral("Formos tipas"), header), 0, 0);
    grid->addWidget(formType_, 0, 1);
    grid->addWidget(parameters_, 0, 2);
    grid->addWidget(numByAcc_, 1, 1, 1, 2);
    grid->addWidget(serijaIndication_, 2, 0);
    grid->addWidget(serija_, 2, 1);
    grid->addWidget(new QLabel(QStringLiteral("Sąskaitų nustatymai"), header), 3, 0);
    grid->addWidget(accountCode_, 3, 1);
    grid->addWidget(accountSettings_, 4, 0, 1, 3);
    grid->setColumnStretch(1, 1);

    QObject::connect(formType_, &QComboBox::currentIndexChanged, header, [this]() {
        if (!filling_)
            formTypeChosen();
    });
    QObject::connect(parameters_, &QPushButton::clicked, header, [this]() { editParameters(); });
    QObject::connect(accountCode_, &QLineEdit::editingFinished, header, [this]() {
        if (editor_->AccountCode != accountCode_->text()) {
            editor_->AccountCode = accountCode_->text();
            fillAccountSettings();
        }
    });
    QObject::connect(serijaIndication_, &QCheckBox::toggled, header,
                     [this](bool on) { serija_->setEnabled(on); });
    return header;
}

QWidget* FrmBROperGroup::buildTemplatesTab() {
    auto* page = new QWidget;
    page->setObjectName(QStringLiteral("Templates"));
    auto* grid = new QGridLayout(page);
    templateGroup_ = lineBox(QStringLiteral("txtTemplateGroup"), page, true);
    auto* pick = button(QStringLiteral("cmdTemplate"), QStringLiteral("..."), page);
    auto* clear = button(QStringLiteral("cmdClearTemplate"), QStringLiteral("Išvalyti"), page);
    mainTemplate_ = lineBox(QStringLiteral("txtMainTemplate"), page, true);
    auto* pickMain = button(QStringLiteral("cmdMainTemplate"), QStringLiteral("..."), page);
    auto* clearMain =
        button(QStringLiteral("cmdClearMainTemplate"), QStringLiteral("Išvalyti"), page);
    grid->addWidget(new QLabel(QStringLiteral("Šablonų grupė"), page), 0, 0);
    grid->addWidget(templateGroup_, 0, 1);
    grid->addWidget(pick, 0, 2);
    grid->addWidget(clear, 0, 3);
    grid->addWidget(new QLabel(QStringLiteral("Pagrindinis šablonas"), page), 1, 0);
    grid->addWidget(mainTemplate_, 1, 1);
    grid->addWidget(pickMain, 1, 2);
    grid->addWidget(clearMain, 1, 3);
    templates_ = new QTreeWidget(page);
    templates_->setObjectName(QStringLiteral("trwTemplates"));
    templates_->setHeaderHidden(true);
    templates_->setContextMenuPolicy(Qt::CustomContextMenu);
    grid->addWidget(templates_, 2, 0, 1, 4);
    grid->setColumnStretch(1, 1);

    templateMenu_ = new QMenu(page);
    QAction* setAsMain =
        templateMenu_->addAction(QStringLiteral("Parinkti nurodytą šabloną kaip pagrindinį"));
    setAsMain->setObjectName(QStringLiteral("mnuSetAsMain"));
    QObject::connect(setAsMain, &QAction::triggered, page, [this]() {
        const QTreeWidgetItem* item = templates_->currentItem();
        if (item && editor_->SetAsMain(item->data(0, Qt::UserRole).toString())) {
            mainTemplate_->setText(editor_->MainTemplateText);
            fillTemplates();
        }
    });
    QObject::connect(templates_, &QTreeWidget::customContextMenuRequested, page,
                     [this](const QPoint& at) {
                         templateMenu_->popup(templates_->viewport()->mapToGlobal(at));
                     });
    QObject::connect(pick, &QPushButton::clicked, page, [this]() {
        if (editor_->PickTemplateGroup()) {
            templateGroup_->setText(editor_->TemplateGroupText);
            fillTemplates();
        }
    });
    QObject::connect(clear, &QPushButton::clicked, page, [this]() {
        editor_->ClearTemplate();
        templateGroup_->clear();
        fillTemplates();
    });
    QObject::connect(pickMain, &QPushButton::clicked, page, [this]() {
        if (editor_->PickMainTemplate()) {
            mainTemplate_->setText(editor_->MainTemplateText);
            fillTemplates();
        }
    });
    QObject::connect(clearMain, &QPushButton::clicked, page, [this]() {
        editor_->ClearMainTemplate();
        mainTemplate_->clear();
        fillTemplates();
    });
    return page;
}

QWidget* FrmBROperGroup::buildAutoNumberTab() {
    auto* page = new QWidget;
    page->setObjectName(QStringLiteral("Autonumber"));
    auto* grid = new QGridLayout(page);
    mask_ = new QTreeWidget(page);
    mask_->setObjectName(QStringLiteral("lvwAutoNumber"));
    mask_->setHeaderLabels({QStringLiteral("Numerio dalys")});
    mask_->setRootIsDecorated(false);
    auto* up = button(QStringLiteral("cmdUp"), QStringLiteral("Aukštyn"), page);
    auto* down = button(QStringLiteral("cmdDown"), QStringLiteral("Žemyn"), page);
    auto* moves = new QVBoxLayout;
    moves->addWidget(up);
    moves->addWidget(down);
    moves->addStretch(1);
    grid->addWidget(mask_, 0, 0, 1, 2);
    grid->addLayout(moves, 0, 2);

    auto* form = new QFormLayout;
    prefix_ = lineBox(QStringLiteral("txtPrefix"), page);
    numberTemplate_ = lineBox(QStringLiteral("txtTemplate"), page);
    minimal_ = new QSpinBox(page);
    minimal_->setObjectName(QStringLiteral("txtMinimal"));
    minimal_->setRange(0, INT_MAX);
    dateFrom_ = dateBox(QStringLiteral("dtpDateFrom"), page);
    cycle_ = new QComboBox(page);
    cycle_->setObjectName(QStringLiteral("cmbCycle"));
    cycle_->addItems(AutoNumberMask::CycleTexts());
    groupBy_ = new QComboBox(page);
    groupBy_->setObjectName(QStringLiteral("cmbGroupBy"));
    groupBy_->addItems(AutoNumberMask::GroupByTexts());
    example_ = lineBox(QStringLiteral("txtExample"), page, true);
    example_->setFocusPolicy(Qt::ClickFocus);
    form->addRow(QStringLiteral("Prefiksas"), prefix_);
    form->addRow(QStringLiteral("Numerio šablonas"), numberTemplate_);
    form->addRow(QStringLiteral("Mažiausias numeris"), minimal_);
    form->addRow(QStringLiteral("Numeruoti nuo"), dateFrom_);
    form->addRow(QStringLiteral("Periodas"), cycle_);
    form->addRow(QStringLiteral("Skaitliukas"), groupBy_);
    form->addRow(QStringLiteral("Pavyzdys"), example_);
    grid->addLayout(form, 1, 0, 1, 3);
    grid->setColumnStretch(1, 1);

    QObject::connect(up, &QPushButton::clicked, page, [this]() { moveMask(true); });
    QObject::connect(down, &QPushButton::clicked, page, [this]() { moveMask(false); });
    QObject::connect(mask_, &QTreeWidget::itemChanged, page, [this](QTreeWidgetItem* item) {
        if (filling_)
            return;
        const int row = mask_->indexOfTopLevelItem(item);
        if (editor_->Mask().SetUsed(row, item->checkState(0) == Qt::Checked)) {
            editor_->MarkChanged();
            showExample();
        }
    });
    return page;
}

QWidget* FrmBROperGroup::buildDebtsTab() {
    auto* page = new QWidget;
    page->setObjectName(QStringLiteral("DebtSettings"));
    auto* grid = new QGridLayout(page);
    debtDate_ = dateBox(QStringLiteral("dtpDebtDate"), page);
    debtDate_->setDate(Today());
    createFullSum_ = button(QStringLiteral("cmdCreateFullSum"),
                            QStringLiteral("Apskaičiuoti grupės operacijų skolas"), page);
    clearFullSum_ = button(QStringLiteral("cmdClearFullSum"),
                           QStringLiteral("Panaikinti apskaičiuotas skolas"), page);
    grid->addWidget(new QLabel(QStringLiteral("Data"), page), 0, 0);
    grid->addWidget(debtDate_, 0, 1);
    grid->addWidget(createFullSum_, 1, 0, 1, 2);
    grid->addWidget(clearFullSum_, 2, 0, 1, 2);
    grid->setRowStretch(3, 1);
    grid->setColumnStretch(2, 1);
    QObject::connect(createFullSum_, &QPushButton::clicked, page,
                     [this]() { editor_->CreateFullSum(debtDate_->date()); });
    QObject::connect(clearFullSum_, &QPushButton::clicked, page,
                     [this]() { editor_->ClearFullSum(); });
    return page;
}

void FrmBROperGroup::connectChanges() {
    auto changed = [this]() {
        if (!filling_)
            editor_->MarkChanged();
    };
    auto sample = [this, changed]() {
        changed();
        if (!filling_)
            showExample();
    };
    for (QLineEdit* box : {name_, serija_, accountCode_})
        QObject::connect(box, &QLineEdit::textEdited, root_, changed);
    for (QLineEdit* box : {prefix_, numberTemplate_})
        QObject::connect(box, &QLineEdit::textEdited, root_, sample);
    QObject::connect(minimal_, &QSpinBox::valueChanged, root_, sample);
    QObject::connect(dateFrom_, &QDateEdit::dateChanged, root_, changed);
    for (QComboBox* box : {cycle_, groupBy_})
        QObject::connect(box, &QComboBox::currentIndexChanged, root_, changed);
    for (QCheckBox* box : {numByAcc_, serijaIndication_})
        QObject::connect(box, &QCheckBox::toggled, root_, changed);
}

void FrmBROperGroup::fill() {
    filling_ = true;
    title_->setText(editor_->Title());
    name_->setText(editor_->Name);
    parent_->setText(editor_->ParentGroupText);
    operationsPart_->setVisible(!editor_->IsGeneral());
    serijaIndication_->setChecked(editor_->SerijaIndication);
    serija_->setText(editor_->Serija);
    serija_->setEnabled(editor_->SerijaIndication);
    accountCode_->setText(editor_->AccountCode);
    numByAcc_->setChecked(editor_->NumByAcc);
    templateGroup_->setText(editor_->TemplateGroupText);
    mainTemplate_->setText(editor_->MainTemplateText);
    prefix_->setText(editor_->ANPrefix);
    numberTemplate_->setText(editor_->ANTemplate);
    minimal_->setValue(editor_->ANMinimal);
    dateFrom_->setDate(editor_->ANDateFrom);
    cycle_->setCurrentIndex(editor_->ANCycle);
    groupBy_->setCurrentIndex(editor_->ANGroupBy);
    const bool stored = !editor_->IsNew();
    createFullSum_->setEnabled(stored);
    clearFullSum_->setEnabled(stored);
    write_->setEnabled(editor_->CanWrite());
    fillMask(-1);
    fillFormType();
    fillAccountSettings();
    filling_ = false;
    showExample();
}

void FrmBROperGroup::fillFormType() {
    const bool was = filling_;
    filling_ = true;
    const int index = formType_->findData(editor_->FormOID);
    formType_->setCurrentIndex(index < 0 ? 0 : index);
    const QStringList shown = editor_->Tabs();
    for (int i = 0; i < tabs_->count(); ++i)
        tabs_->setTabVisible(i, shown.contains(tabs_->widget(i)->objectName()));
    numByAcc_->setVisible(GroupEditor::HasNumByAcc(editor_->FormOID));
    parameters_->setEnabled(!GroupEditor::ParametersFormFor(editor_->FormOID).isEmpty());
    filling_ = was;
    fillTemplates();
}

void FrmBROperGroup::fillTemplates() {
    templates_->clear();
    if (editor_->IsGeneral())
        return;
    auto tree = std::make_shared<MemoryTreeControl>();
    editor_->FillTemplates(tree);
    QHash<QString, QTreeWidgetItem*> byKey;
    for (int i = 0; i < tree->Count(); ++i) {
        QTreeWidgetItem* parent = byKey.value(tree->ParentKey(i));
        auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(templates_);
        item->setText(0, tree->Text(i));
        item->setData(0, Qt::UserRole, tree->Key(i));
        QFont font = item->font(0);
        font.setBold(tree->Bold(i));
        item->setFont(0, font);
        byKey.insert(tree->Key(i), item);
    }
    for (int i = 0; i < tree->Count(); ++i)
        if (tree->Expanded(i))
            byKey.value(tree->Key(i))->setExpanded(true);
}

void FrmBROperGroup::fillAccountSettings() {
    accountSettings_->clear();
    if (editor_->IsGeneral())
        return;
    const RecordsetPtr rows = editor_->AccountSettings();
    if (!rows)
        return;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
        auto* item = new QTreeWidgetItem(accountSettings_,
                                         {NzString(rows->Field(QStringLiteral("CodeName"))),
                                          NzString(rows->Field(QStringLiteral("Account"))),
                                          NzString(rows->Field(QStringLiteral("AccountName")))});
        item->setData(0, Qt::UserRole, NzString(rows->Field(QStringLiteral("Code"))));
    }
}

void FrmBROperGroup::fillMask(int current) {
    const bool was = filling_;
    filling_ = true;
    mask_->clear();
    for (const AutoNumberMask::Part& p : editor_->Mask().Parts()) {
        auto* item = new QTreeWidgetItem(mask_, {AutoNumberMask::Caption(p.Name)});
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(0, p.Used ? Qt::Checked : Qt::Unchecked);
        item->setData(0, Qt::UserRole, p.Name);
    }
    if (current >= 0 && current < mask_->topLevelItemCount())
        mask_->setCurrentItem(mask_->topLevelItem(current));
    filling_ = was;
}

void FrmBROperGroup::moveMask(bool up) {
    const int row = mask_->indexOfTopLevelItem(mask_->currentItem());
    const bool moved = up ? editor_->Mask().MoveUp(row) : editor_->Mask().MoveDown(row);
    if (!moved)
        return;
    editor_->MarkChanged();
    fillMask(up ? row - 1 : row + 1);
    showExample();
}

void FrmBROperGroup::showExample() {
    editor_->ANPrefix = prefix_->text();
    editor_->ANTemplate = numberTemplate_->text();
    editor_->ANMinimal = minimal_->value();
    example_->setText(editor_->Example());
}

void FrmBROperGroup::readBoxes() {
    editor_->Name = name_->text();
    editor_->SerijaIndication = serijaIndication_->isChecked();
    editor_->Serija = serija_->text();
    editor_->AccountCode = accountCode_->text();
    editor_->NumByAcc = numByAcc_->isChecked();
    editor_->ANPrefix = prefix_->text();
    editor_->ANTemplate = numberTemplate_->text();
    editor_->ANMinimal = minimal_->value();
    editor_->ANDateFrom = dateFrom_->date();
    editor_->ANCycle = cycle_->currentIndex();
    editor_->ANGroupBy = groupBy_->currentIndex();
}

void FrmBROperGroup::formTypeChosen() {
    const QString chosen = formType_->currentData().toString();
    if (chosen == editor_->FormOID)
        return;
    editor_->FormOID = chosen;
    editor_->MarkChanged();
    fillFormType();
}

void FrmBROperGroup::editParameters() {
    readBoxes();
    if (editor_->EditParameters()) {
        filling_ = true;
        numByAcc_->setChecked(editor_->NumByAcc);
        filling_ = false;
        fillTemplates();
    }
}

void FrmBROperGroup::Write() {
    readBoxes();
    if (!editor_->Write().ok())
        return;
    fill();
}

bool FrmBROperGroup::CloseForm() {
    if (editor_ && !editor_->CanClose())
        return false;
    CloseFormWindow(*this, root_, false);
    return true;
}

} // namespace orvo::accounts_forms
