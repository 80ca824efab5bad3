#include "settlement/forms/frm_covers_in_future_parameters.h"

#include "settlement/deferred_covers.h"
#include "ui/widgets/dialog_buttons.h"

#include <QDateEdit>
#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvo {

FrmCoversInFutureParameters::FrmCoversInFutureParameters()
    : ui::WidgetForm(QStringLiteral("frmCoversInFutureParameters")) {}

void FrmCoversInFutureParameters::SetPeriod(const QString& monthFrom, const QString& monthCount,
                                            const QDate& fallback) {
    monthFrom_ = monthFrom;
    monthCount_ = monthCount;
    fallback_ = fallback;
}

QWidget* FrmCoversInFutureParameters::BuildWidget() {
    cancelled_ = true;
    auto* root = new QWidget;
    root->setWindowTitle(QStringLiteral("Laikotarpis"));
    auto* dtpDateFrom = new QDateEdit(root);
    dtpDateFrom->setObjectName(QStringLiteral("dtpDateFrom"));
    dtpDateFrom->setDisplayFormat(QStringLiteral("yyyy.MM"));
    const QDate shown = DeferredCovers::MonthDate(monthFrom_);
    dtpDateFrom->setDate(shown.isValid() ? shown : QDate(fallback_.year(), fallback_.month(), 1));
    auto* txtMonthCount = new QLineEdit(monthCount_, root);
    txtMonthCount->setObjectName(QStringLiteral("txtMonthCount"));
    txtMonthCount->setValidator(new QIntValidator(0, 9999, txtMonthCount));
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Nuo mėnesio"), dtpDateFrom);
    form->addRow(QStringLiteral("mėnesių skaičius"), txtMonthCount);

    const ui::DialogButtons row = ui::DialogButtons::Make(root);
    QPushButton* ok = row.Ok;
    QPushButton* cancel = row.Cancel;
    QHBoxLayout* buttons = row.Row;
    auto* layout = new QVBoxLayout(root);
    layout->addLayout(form);
    layout->addLayout(buttons);

    auto close = [root](bool accepted) {
        if (auto* dialog = qobject_cast<QDialog*>(root->window()))
            accepted ? dialog->accept() : dialog->reject();
    };
    QObject::connect(ok, &QPushButton::clicked, root, [=, this]() {
        monthFrom_ = DeferredCovers::MonthText(dtpDateFrom->date());
        monthCount_ = txtMonthCount->text().trimmed();
        cancelled_ = false;
        close(true);
    });
    QObject::connect(cancel, &QPushButton::clicked, root, [close]() { close(false); });
    return root;
}

} // namespace orvo
