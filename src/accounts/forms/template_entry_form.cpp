#include "accounts/forms/template_entry_form.h"

#include "accounts/forms/form_support.h"
#include "accounts/template_rules.h"
#include "frame/pickers.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo::accounts_forms {

// The factor box takes digits, one decimal separator ("." is typed as ",") and
// backspace; leaving it applies the factor rule.
class FrmBRTemplateAcc::FactorKeys : public QObject {
public:
    FactorKeys(FrmBRTemplateAcc& form, QObject* parent) : QObject(parent), form_(form) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* box = qobject_cast<QLineEdit*>(watched);
        if (!box)
            return false;
        if (event->type() == QEvent::FocusOut) {
            form_.FactorLeft();
            return false;
        }
        if (event->type() != QEvent::KeyPress)
            return false;
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab ||
            key->key() == Qt::Key_Backspace || key->key() == Qt::Key_Return ||
            key->key() == Qt::Key_Enter)
            return false;
        const QString text = key->text();
        if (text.size() != 1)
            return true;
        const QChar c = text.at(0);
        if (c.isDigit())
            return false;
        if (c == QLatin1Char('.') || c == QLatin1Char(',')) {
            if (!box->text().contains(QLatin1Char(',')))
                box->insert(QStringLiteral(","));
            return true;
        }
        return true;
    }

private:
    FrmBRTemplateAcc& form_;
};

FrmBRTemplateAcc::~FrmBRTemplateAcc() = default;

QWidget* FrmBRTemplateAcc::BuildWidget() {
    editor_ = std::make_unique<TemplateEntryEditor>(GetOrvoObjectUIO(), ClickedParameters());
    editor_->Load();

    root_ = new QWidget;
    root_->setWindowTitle(QStringLiteral("Buhalterinio įrašo šablonas"));
    auto* column = new QVBoxLayout(root_);
    auto* grid = new QGridLayout;
    auto makeCombo = [this](const char* name) {
        auto* combo = new QComboBox(root_);
        combo->setObjectName(QString::fromLatin1(name));
        combo->setEditable(true);
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->addItems(editor_->AccountItems());
        return combo;
    };
    auto makeList = [this](const char* name) {
        auto* list = new QTreeWidget(root_);
        list->setObjectName(QString::fromLatin1(name));
        list->setHeaderHidden(true);
        list->setRootIsDecorated(false);
        list->setContextMenuPolicy(Qt::CustomContextMenu);
        return list;
    };
    accountD_ = makeCombo("cmbAccountD");
    accountC_ = makeCombo("cmbAccountC");
    addrD_ = makeList("lvwAddrD");
    addrC_ = makeList("lvwAddrC");
    grid->addWidget(new QLabel(QStringLiteral("Debetas"), root_), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("Kreditas"), root_), 0, 1);
    grid->addWidget(accountD_, 1, 0);
    grid->addWidget(accountC_, 1, 1);
    grid->addWidget(new QLabel(QStringLiteral("Būtini adresatai:"), root_), 2, 0);
    grid->addWidget(new QLabel(QStringLiteral("Būtini adresatai:"), root_), 2, 1);
    grid->addWidget(addrD_, 3, 0);
    grid->addWidget(addrC_, 3, 1);
    column->addLayout(grid, 1);

    auto* factorRow = new QFormLayout;
    factor_ = new QLineEdit(root_);
    factor_->setObjectName(QStringLiteral("txtFactor"));
    factorRow->addRow(QStringLiteral("Sumos pakeitimo koeficientas"), factor_);
    column->addLayout(factorRow);
    factor_->installEventFilter(new FactorKeys(*this, root_));

    auto* buttons = new QHBoxLayout;
    auto* ok = new QPushButton(QStringLiteral("Įrašyti"), root_);
    ok->setObjectName(QStringLiteral("cmdOK"));
    auto* cancel = new QPushButton(QStringLiteral("Atšaukti"), root_);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    column->addLayout(buttons);

    QWidget::setTabOrder(accountD_, accountC_);
    QWidget::setTabOrder(accountC_, factor_);
    QWidget::setTabOrder(factor_, addrD_);
    QWidget::setTabOrder(addrD_, addrC_);
    QWidget::setTabOrder(addrC_, ok);
    QWidget::setTabOrder(ok, cancel);

    filling_ = true;
    accountD_->setEditText(editor_->AccountDText);
    accountC_->setEditText(editor_->AccountCText);
    factor_->setText(editor_->FactorText);
    filling_ = false;
    fillKinds(1);
    fillKinds(-1);

    QObject::connect(accountD_, &QComboBox::currentTextChanged, root_,
                     [this]() { accountChosen(1); });
    QObject::connect(accountC_, &QComboBox::currentTextChanged, root_,
                     [this]() { accountChosen(-1); });
    QObject::connect(addrD_, &QTreeWidget::customContextMenuRequested, root_,
                     [this](const QPoint& at) {
                         if (QTreeWidgetItem* item = addrD_->itemAt(at))
                             PickFixed(1, addrD_->indexOfTopLevelItem(item));
                     });
    QObject::connect(addrC_, &QTreeWidget::customContextMenuRequested, root_,
                     [this](const QPoint& at) {
                         if (QTreeWidgetItem* item = addrC_->itemAt(at))
                             PickFixed(-1, addrC_->indexOfTopLevelItem(item));
                     });
    QObject::connect(ok, &QPushButton::clicked, root_, [this]() { OK(); });
    QObject::connect(cancel, &QPushButton::clicked, root_,
                     [this]() { CloseFormWindow(*this, root_, false); });
    return root_;
}

void FrmBRTemplateAcc::fillKinds(int sign) {
    QTreeWidget* list = sign > 0 ? addrD_ : addrC_;
    filling_ = true;
    list->clear();
    for (const TemplateEntryEditor::AddresseeKind& k : editor_->Kinds(sign)) {
        auto* item = new QTreeWidgetItem(list, {k.Shown()});
        item->setData(0, Qt::UserRole, k.FOID);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(0, k.Checked ? Qt::Checked : Qt::Unchecked);
    }
    filling_ = false;
}

void FrmBRTemplateAcc::readChecks(int sign) {
    QTreeWidget* list = sign > 0 ? addrD_ : addrC_;
    QVector<TemplateEntryEditor::AddresseeKind>& kinds = editor_->Kinds(sign);
    for (int i = 0; i < list->topLevelItemCount() && i < kinds.size(); ++i)
        kinds[i].Checked = list->topLevelItem(i)->checkState(0) == Qt::Checked;
}

void FrmBRTemplateAcc::accountChosen(int sign) {
    if (filling_)
        return;
    QComboBox* combo = sign > 0 ? accountD_ : accountC_;
    editor_->LoadKinds(sign, combo->currentText());
    fillKinds(sign);
}

void FrmBRTemplateAcc::FactorLeft() {
    if (!factor_)
        return;
    editor_->FactorText = factor_->text();
    const QString kept = TemplateFactorText(factor_->text());
    if (kept != factor_->text())
        factor_->setText(kept);
}

void FrmBRTemplateAcc::PickFixed(int sign, int row) {
    const OrvoServicesPtr s = Services();
    const PickersPtr pickers = s ? s->PickersService() : nullptr;
    if (!pickers)
        return;
    readChecks(sign);
    const QString picked = pickers->PickObject(QStringLiteral("C;T;Contract;"),
                                               QStringLiteral("Pasirinkite"), QString(), QString());
    if (picked.isEmpty())
        return;
    editor_->SetFixed(sign, row, picked);
    fillKinds(sign);
}

void FrmBRTemplateAcc::OK() {
    FactorLeft();
    editor_->AccountDText = accountD_->currentText();
    editor_->AccountCText = accountC_->currentText();
    editor_->FactorText = factor_->text();
    readChecks(1);
    readChecks(-1);
    if (!editor_->Write().ok())
        return;
    written_ = true;
    CloseFormWindow(*this, root_, true);
}

} // namespace orvo::accounts_forms
