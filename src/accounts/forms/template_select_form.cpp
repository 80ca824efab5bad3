#include "accounts/forms/template_select_form.h"

#include "accounts/forms/form_support.h"
#include "frame/messages.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo::accounts_forms {

namespace {

qint64 idOf(const Value& v) {
    return v.isNull() ? 0 : static_cast<qint64>(v.toDouble());
}

} // namespace

QWidget* FrmBROperTemplateSelect::BuildWidget() {
    const ResultRecord loaded = choice_.Load(GetOrvoObjectUIO());
    root_ = new QWidget;
    root_->setWindowTitle(TemplateChoice::Caption(choice_.HasGroup()));
    auto* column = new QVBoxLayout(root_);
    tree_ = new QTreeWidget(root_);
    tree_->setObjectName(QStringLiteral("trwTemplates"));
    tree_->setHeaderLabels({QStringLiteral("Šablonas"), QStringLiteral("Įrašai")});
    column->addWidget(tree_, 1);
    auto* form = new QFormLayout;
    select_ = new QLineEdit(root_);
    select_->setObjectName(QStringLiteral("txtSelect"));
    select_->setReadOnly(true);
    sum_ = new QLineEdit(root_);
    sum_->setObjectName(QStringLiteral("txtSuma"));
    form->addRow(QStringLiteral("Pasirinktas šablonas"), select_);
    form->addRow(QStringLiteral("Operacijos suma"), sum_);
    column->addLayout(form);
    auto* buttons = new QHBoxLayout;
    auto* ok = new QPushButton(QStringLiteral("Gerai"), root_);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("Atšaukti"), root_);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    column->addLayout(buttons);
    QWidget::setTabOrder(tree_, sum_);
    QWidget::setTabOrder(sum_, ok);
    QWidget::setTabOrder(ok, cancel);

    fillTree();
    if (!loaded.ok())
        ShowError(loaded.Text);

    QObject::connect(tree_, &QTreeWidget::currentItemChanged, root_, [this]() {
        select_->setText(choice_.IsTemplate(selectedId()) ? choice_.SelectedText(selectedId())
                                                          : QString());
    });
    QObject::connect(tree_, &QTreeWidget::itemDoubleClicked, root_, [this]() { OK(); });
    QObject::connect(ok, &QPushButton::clicked, root_, [this]() { OK(); });
    QObject::connect(cancel, &QPushButton::clicked, root_,
                     [this]() { CloseFormWindow(*this, root_, false); });
    return root_;
}

void FrmBROperTemplateSelect::fillTree() {
    tree_->clear();
    const RecordsetPtr rows = choice_.Rows();
    if (!rows)
        return;
    // Rows come parents first: a row hangs under the node whose own code is its parent's.
    QHash<QString, QTreeWidgetItem*> byCode;
    QTreeWidgetItem* preset = nullptr;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
        const qint64 id = idOf(rows->Field(QStringLiteral("ID")));
        const QString parent = rows->Field(QStringLiteral("ParentCode")).toString();
        const bool group = rows->Field(QStringLiteral("GroupFlag")).toInt32() != 0;
        QTreeWidgetItem* under = byCode.value(parent);
        const QStringList texts{rows->Field(QStringLiteral("Preview")).toString(),
                                group ? QString()
                                      : rows->Field(QStringLiteral("AccPreview")).toString()};
        auto* item = under ? new QTreeWidgetItem(under, texts) : new QTreeWidgetItem(tree_, texts);
        item->setData(0, Qt::UserRole, id);
        if (group) {
            QFont bold = item->font(0);
            bold.setBold(true);
            item->setFont(0, bold);
        }
        byCode.insert(rows->Field(QStringLiteral("OwnCode")).toString(), item);
        if (id == choice_.PresetID())
            preset = item;
    }
    tree_->expandAll();
    if (preset) {
        tree_->setCurrentItem(preset);
        select_->setText(choice_.IsTemplate(choice_.PresetID())
                             ? choice_.SelectedText(choice_.PresetID())
                             : QString());
    }
}

qint64 FrmBROperTemplateSelect::selectedId() const {
    const QTreeWidgetItem* item = tree_ ? tree_->currentItem() : nullptr;
    return item ? item->data(0, Qt::UserRole).toLongLong() : 0;
}

void FrmBROperTemplateSelect::OK() {
    if (!choice_.Accept(selectedId(), sum_->text()))
        return;
    CloseFormWindow(*this, root_, true);
}

} // namespace orvo::accounts_forms
