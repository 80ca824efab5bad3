#include "settlement/forms/frm_br_oper_select_change_rate.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/number_text.h"
#include "frame/catalogue_data_access.h"
#include "frame/catalogue_recordsets.h"

#include <QDateEdit>
#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvo {

FrmBROperSelectChangeRate::FrmBROperSelectChangeRate()
    : ui::WidgetForm(QStringLiteral("frmBROperSelect_ChangeRate")) {}

void FrmBROperSelectChangeRate::SetCurrency(const QString& code, const QDate& date) {
    code_ = code;
    date_ = date;
}

double FrmBROperSelectChangeRate::QuotedRate(const OrvoObjectUIOPtr& caller, const QString& code,
                                             const QDate& date) {
    const OrvoObjectUIOPtr op = Catalogue::GetOperationUIO(caller);
    if (!op)
        return 0;
    const ValueResult r = op->Properties(QStringLiteral("CurrencyList"), DateParam(date));
    const RecordsetPtr list = r.Code == 0 ? r.Value.toRecordset() : nullptr;
    if (!Catalogue::TryFilter(list, QStringLiteral("Code = '") + code + QStringLiteral("'")))
        return 0;
    const double rate = NzDouble(list->Field(
        Catalogue::BaseIsEuro() ? QStringLiteral("CurrencyRate") : QStringLiteral("Rate")));
    list->SetFilter(QString());
    return rate;
}

void FrmBROperSelectChangeRate::showRate() {
    const double rate = QuotedRate(GetOrvoObjectUIO(), code_, dtpDate_->date());
    txtDayRate_->setText(rate > 0 ? FormatNumberLt(rate, 9, false) : QString());
}

QWidget* FrmBROperSelectChangeRate::BuildWidget() {
    cancelled_ = true;
    auto* root = new QWidget;
    root->setWindowTitle(code_ + QStringLiteral(" kursas"));
    dtpDate_ = new QDateEdit(root);
    dtpDate_->setObjectName(QStringLiteral("dtpDate"));
    dtpDate_->setCalendarPopup(true);
    dtpDate_->setDisplayFormat(QStringLiteral("yyyy.MM.dd"));
    dtpDate_->setDate(date_.isValid() ? date_ : QDate::currentDate());
    txtDayRate_ = new QLineEdit(root);
    txtDayRate_->setObjectName(QStringLiteral("txtDayRate"));
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Valiutų kursų data"), dtpDate_);
    form->addRow(QStringLiteral("Valiutų kursas"), txtDayRate_);

    auto* select = new QPushButton(QStringLiteral("Pasirinkti"), root);
    select->setObjectName(QStringLiteral("cmdSelect"));
    auto* cancel = new QPushButton(QStringLiteral("Atšaukti"), root);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(select);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(root);
    layout->addLayout(form);
    layout->addLayout(buttons);
    showRate();

    QObject::connect(dtpDate_, &QDateEdit::dateChanged, root, [this]() { showRate(); });
    auto close = [root](bool accepted) {
        if (auto* dialog = qobject_cast<QDialog*>(root->window()))
            accepted ? dialog->accept() : dialog->reject();
    };
    QObject::connect(select, &QPushButton::clicked, root, [this, close]() {
        rate_ = Catalogue::RateFromText(txtDayRate_->text());
        cancelled_ = false;
        close(true);
    });
    QObject::connect(cancel, &QPushButton::clicked, root, [close]() { close(false); });
    return root;
}

} // namespace orvo
