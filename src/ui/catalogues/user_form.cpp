#include "ui/catalogues/user_form.h"

#include "core/recordset.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo::ui {

namespace {

const char* const kFlagCaptions[] = {"Skaityti", "Naikinti", "Keisti", "Kurti", "Penkta"};

} // namespace

host::UserEditor* UserForm::user() const {
    return dynamic_cast<host::UserEditor*>(editor_.get());
}

void UserForm::buildExtra(QWidget* root, QVBoxLayout* column) {
    auto* box = new QGroupBox(QStringLiteral("Teisės"), root);
    auto* layout = new QVBoxLayout(box);
    rights_ = new QTreeWidget(box);
    rights_->setObjectName(QStringLiteral("lvwRights"));
    rights_->setRootIsDecorated(false);
    QStringList headers{QStringLiteral("Teisė")};
    for (const char* caption : kFlagCaptions)
        headers << QString::fromUtf8(caption);
    rights_->setHeaderLabels(headers);
    rights_->setColumnWidth(0, 330);
    root->setMinimumWidth(720);
    layout->addWidget(rights_, 1);
    auto* row = new QHBoxLayout;
    const QStringList& names = host::UserEditor::FlagNames();
    for (int i = 0; i < names.size(); ++i) {
        auto* check = new QCheckBox(QString::fromUtf8(kFlagCaptions[i]), box);
        check->setObjectName(QStringLiteral("chk") + names.at(i));
        QObject::connect(check, &QCheckBox::toggled, root, [this, i](bool on) { setFlag(i, on); });
        row->addWidget(check);
        flags_.append(check);
    }
    row->addStretch(1);
    layout->addLayout(row);
    column->addWidget(box, 1);
    QObject::connect(rights_, &QTreeWidget::currentItemChanged, root,
                     [this]() { showFlagsOfCurrent(); });
}

void UserForm::fillRow(int row) {
    const RecordsetPtr rights = user() ? user()->Rights() : nullptr;
    QTreeWidgetItem* item = rights_->topLevelItem(row);
    if (!rights || !item || row >= rights->RowCountAll())
        return;
    const QStringList& names = host::UserEditor::FlagNames();
    for (int i = 0; i < names.size(); ++i) {
        const Value v = rights->ValueAt(row, rights->FieldIndex(names.at(i)));
        item->setText(i + 1, !v.isNull() && v.toBool() ? QStringLiteral("+") : QString());
        item->setTextAlignment(i + 1, Qt::AlignCenter);
    }
}

void UserForm::fillExtra() {
    if (!rights_)
        return;
    const int current =
        rights_->currentItem() ? rights_->indexOfTopLevelItem(rights_->currentItem()) : -1;
    rights_->clear();
    const RecordsetPtr rights = user() ? user()->Rights() : nullptr;
    if (!rights)
        return;
    for (int i = 0; i < rights->RowCountAll(); ++i) {
        if (rights->StatusAt(i) == RowStatus::Deleted)
            continue;
        const qint32 kind =
            rights->ValueAt(i, rights->FieldIndex(QStringLiteral("Kind"))).toInt32();
        const QString parent =
            rights->ValueAt(i, rights->FieldIndex(QStringLiteral("ParentKey"))).toString();
        QString title = rights->ValueAt(i, rights->FieldIndex(QStringLiteral("Title"))).toString();
        if (!parent.isEmpty())
            title = QStringLiteral("    ") + title;
        auto* item = new QTreeWidgetItem(rights_, {title});
        item->setData(
            0, Qt::UserRole,
            rights->ValueAt(i, rights->FieldIndex(QStringLiteral("RightKey"))).toString());
        item->setData(0, Qt::UserRole + 1, kind);
        QFont font = item->font(0);
        font.setBold(kind == 10);
        item->setFont(0, font);
        fillRow(rights_->topLevelItemCount() - 1);
    }
    if (current >= 0 && current < rights_->topLevelItemCount())
        rights_->setCurrentItem(rights_->topLevelItem(current));
    showFlagsOfCurrent();
}

void UserForm::showFlagsOfCurrent() {
    const QTreeWidgetItem* item = rights_ ? rights_->currentItem() : nullptr;
    const QString key = item ? item->data(0, Qt::UserRole).toString() : QString();
    const qint32 kind = item ? item->data(0, Qt::UserRole + 1).toInt() : 0;
    const QStringList& names = host::UserEditor::FlagNames();
    showing_ = true;
    for (int i = 0; i < flags_.size(); ++i) {
        const bool takes = item && host::UserEditor::TakesFlag(kind, names.at(i));
        flags_.at(i)->setEnabled(takes);
        flags_.at(i)->setChecked(takes && user()->RightFlag(key, names.at(i)));
    }
    showing_ = false;
}

void UserForm::setFlag(int index, bool on) {
    if (showing_ || filling_ || !user())
        return;
    QTreeWidgetItem* item = rights_->currentItem();
    if (!item)
        return;
    if (user()->SetRightFlag(item->data(0, Qt::UserRole).toString(),
                             host::UserEditor::FlagNames().at(index), on))
        fillRow(rights_->indexOfTopLevelItem(item));
}

} // namespace orvo::ui
