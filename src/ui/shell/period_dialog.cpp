#include "ui/shell/period_dialog.h"

#include "core/today.h"
#include "ui/services/dialog_driver.h"
#include "ui/widgets/dialog_buttons.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDialog>
#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvo::ui {

namespace {

struct Side {
    QCheckBox* Bounded = nullptr;
    QDateEdit* Date = nullptr;

    QDate Value() const { return Bounded->isChecked() ? Date->date() : QDate(); }
};

Side makeSide(QDialog& dialog, QGridLayout& grid, int row, const QString& caption,
              const char* checkName, const char* dateName, const QDate& date) {
    Side side;
    side.Bounded = new QCheckBox(caption, &dialog);
    side.Bounded->setObjectName(QString::fromLatin1(checkName));
    side.Date = new QDateEdit(&dialog);
    side.Date->setObjectName(QString::fromLatin1(dateName));
    side.Date->setDisplayFormat(QStringLiteral("yyyy.MM.dd"));
    side.Date->setCalendarPopup(true);
    side.Date->setMinimumDate(QDate(1990, 1, 1));
    side.Date->setMaximumDate(QDate(9999, 12, 31));
    // An unbounded side offers today's date for when it is checked.
    side.Date->setDate(date.isValid() ? date : Today());
    side.Bounded->setChecked(date.isValid());
    side.Date->setEnabled(date.isValid());
    QObject::connect(side.Bounded, &QCheckBox::toggled, side.Date, &QWidget::setEnabled);
    grid.addWidget(side.Bounded, row, 0);
    grid.addWidget(side.Date, row, 1);
    return side;
}

} // namespace

std::optional<ViewPeriod> PeriodDialog::Ask(QWidget* parent, const ViewPeriod& current,
                                            const MessagesPtr& messages) {
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("frmViewPeriod"));
    dialog.setWindowTitle(Title());
    auto* column = new QVBoxLayout(&dialog);
    auto* grid = new QGridLayout;
    const Side from =
        makeSide(dialog, *grid, 0, QStringLiteral("Nuo:"), "chkFrom", "dtpFrom", current.From);
    const Side to =
        makeSide(dialog, *grid, 1, QStringLiteral("Iki:"), "chkTo", "dtpTo", current.To);
    column->addLayout(grid);
    const DialogButtons buttons = DialogButtons::Make(&dialog);
    buttons.Ok->setDefault(true);
    column->addLayout(buttons.Row);

    ViewPeriod chosen;
    QObject::connect(buttons.Ok, &QPushButton::clicked, &dialog, [&]() {
        ViewPeriod period;
        period.From = from.Value();
        period.To = to.Value();
        const QString refusal = period.Refusal();
        if (!refusal.isEmpty()) {
            if (messages)
                messages->Warning(refusal);
            return;
        }
        chosen = period;
        dialog.accept();
    });
    QObject::connect(buttons.Cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
    (from.Bounded->isChecked() ? static_cast<QWidget*>(from.Date) : from.Bounded)->setFocus();
    if (DialogDriver::Exec(dialog) != QDialog::Accepted)
        return std::nullopt;
    return chosen;
}

} // namespace orvo::ui
