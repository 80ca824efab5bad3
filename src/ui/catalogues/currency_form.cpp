#include "ui/catalogues/currency_form.h"

#include "core/recordset.h"
#include "core/today.h"

#include <QDateEdit>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo::ui {

host::CurrencyEditor* CurrencyForm::currency() const {
    return dynamic_cast<host::CurrencyEditor*>(editor_.get());
}

void CurrencyForm::buildExtra(QWidget* root, QVBoxLayout* column) {
    auto* box = new QGroupBox(QStringLiteral("Kursai"), root);
    auto* layout = new QVBoxLayout(box);
    rates_ = new QTreeWidget(box);
    rates_->setObjectName(QStringLiteral("lvwRates"));
    rates_->setRootIsDecorated(false);
    rates_->setHeaderLabels({QStringLiteral("Data"),
                             currency() ? currency()->RateCaption() : QStringLiteral("Kursas")});
    rates_->setColumnWidth(0, 120);
    layout->addWidget(rates_, 1);

    auto* row = new QHBoxLayout;
    date_ = new QDateEdit(Today(), box);
    date_->setObjectName(QStringLiteral("dtpRateDate"));
    date_->setDisplayFormat(QStringLiteral("yyyy.MM.dd"));
    date_->setCalendarPopup(true);
    rate_ = new QLineEdit(box);
    rate_->setObjectName(QStringLiteral("txtRate"));
    rate_->setAlignment(Qt::AlignRight);
    auto* add = new QPushButton(QStringLiteral("Įrašyti kursą"), box);
    add->setObjectName(QStringLiteral("cmdAddRate"));
    auto* remove = new QPushButton(QStringLiteral("Panaikinti kursą"), box);
    remove->setObjectName(QStringLiteral("cmdDeleteRate"));
    row->addWidget(new QLabel(QStringLiteral("Data"), box));
    row->addWidget(date_);
    row->addWidget(new QLabel(QStringLiteral("Kursas"), box));
    row->addWidget(rate_, 1);
    row->addWidget(add);
    row->addWidget(remove);
    layout->addLayout(row);
    column->addWidget(box, 1);

    QObject::connect(add, &QPushButton::clicked, root, [this]() { AddRate(); });
    QObject::connect(remove, &QPushButton::clicked, root, [this]() { DeleteRate(); });
    QObject::connect(rates_, &QTreeWidget::currentItemChanged, root, [this](QTreeWidgetItem* item) {
        if (!item)
            return;
        date_->setDate(item->data(0, Qt::UserRole).toDate());
        rate_->setText(item->text(1));
    });
}

void CurrencyForm::fillExtra() {
    if (!rates_)
        return;
    rates_->clear();
    host::CurrencyEditor* editor = currency();
    const RecordsetPtr rates = editor ? editor->Rates() : nullptr;
    if (!rates)
        return;
    for (int i = 0; i < rates->RowCountAll(); ++i) {
        const QDate day = rates->ValueAt(i, rates->FieldIndex(QStringLiteral("DateD"))).toDate();
        auto* item = new QTreeWidgetItem(
            rates_, {day.toString(QStringLiteral("yyyy.MM.dd")), editor->QuotedRateText(i)});
        item->setData(0, Qt::UserRole, day);
        item->setTextAlignment(1, Qt::AlignRight);
    }
    const bool stored = !editor->IsNew() && !editor->IsBase();
    rates_->setEnabled(stored);
    date_->setEnabled(stored);
    rate_->setEnabled(stored);
}

void CurrencyForm::AddRate() {
    if (host::CurrencyEditor* editor = currency();
        editor && editor->AddRate(date_->date(), rate_->text()).ok()) {
        filling_ = true;
        fillExtra();
        filling_ = false;
    }
}

void CurrencyForm::DeleteRate() {
    host::CurrencyEditor* editor = currency();
    const QTreeWidgetItem* item = rates_->currentItem();
    if (!editor || !item)
        return;
    if (editor->DeleteRate(item->data(0, Qt::UserRole).toDate()).ok()) {
        filling_ = true;
        fillExtra();
        filling_ = false;
    }
}

} // namespace orvo::ui
