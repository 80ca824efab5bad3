#include "ui/services/object_picker_dialog.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvo::ui {

ObjectPickerDialog::ObjectPickerDialog(const QString& title, const QList<Entry>& entries,
                                       QWidget* parent)
    : QDialog(parent), entries_(entries) {
    setObjectName(QStringLiteral("frmObjectPicker"));
    setWindowTitle(title);
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(QStringLiteral("Paieška:"), this);
    search_ = new QLineEdit(this);
    search_->setObjectName(QStringLiteral("txtSearch"));
    search_->setClearButtonEnabled(true);
    label->setBuddy(search_);
    list_ = new QListWidget(this);
    list_->setObjectName(QStringLiteral("lvwObjects"));
    for (int i = 0; i < entries_.size(); ++i) {
        auto* item = new QListWidgetItem(entries_.at(i).Text, list_);
        item->setData(Qt::UserRole, i);
        item->setToolTip(entries_.at(i).OIDR);
    }
    auto* buttons = new QDialogButtonBox(this);
    ok_ = buttons->addButton(QStringLiteral("Gerai"), QDialogButtonBox::AcceptRole);
    ok_->setObjectName(QStringLiteral("cmdOK"));
    QPushButton* cancel =
        buttons->addButton(QStringLiteral("Atšaukti"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    layout->addWidget(label);
    layout->addWidget(search_);
    layout->addWidget(list_);
    layout->addWidget(buttons);
    resize(420, 480);

    connect(search_, &QLineEdit::textChanged, this, &ObjectPickerDialog::applySearch);
    connect(search_, &QLineEdit::returnPressed, this, &QDialog::accept);
    connect(list_, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    applySearch(QString());
    search_->setFocus();
}

void ObjectPickerDialog::applySearch(const QString& text) {
    const QString needle = text.trimmed();
    QListWidgetItem* first = nullptr;
    for (int i = 0; i < list_->count(); ++i) {
        QListWidgetItem* item = list_->item(i);
        const bool shown = needle.isEmpty() || item->text().contains(needle, Qt::CaseInsensitive);
        item->setHidden(!shown);
        if (shown && !first)
            first = item;
    }
    // The first row that fits becomes current, so Enter in the search box takes it.
    if (!list_->currentItem() || list_->currentItem()->isHidden())
        list_->setCurrentItem(first);
    ok_->setEnabled(first != nullptr);
}

int ObjectPickerDialog::VisibleCount() const {
    int n = 0;
    for (int i = 0; i < list_->count(); ++i)
        if (!list_->item(i)->isHidden())
            ++n;
    return n;
}

std::optional<ObjectPickerDialog::Entry> ObjectPickerDialog::Chosen() const {
    if (result() != QDialog::Accepted)
        return std::nullopt;
    const QListWidgetItem* item = list_->currentItem();
    if (!item || item->isHidden())
        return std::nullopt;
    return entries_.value(item->data(Qt::UserRole).toInt());
}

} // namespace orvo::ui
