#include "operations/forms/frm_br_copy_by_monthes.h"

#include "core/number_text.h"
#include "ui/shell/built_widget_form.h"
#include "ui/widgets/dialog_buttons.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace orvo {

namespace {

QLineEdit* edit(QWidget* parent, const char* name, const QString& text) {
    auto* e = new QLineEdit(text, parent);
    e->setObjectName(QString::fromLatin1(name));
    return e;
}

QRadioButton* option(QWidget* parent, const char* name, const QString& text) {
    auto* o = new QRadioButton(text, parent);
    o->setObjectName(QString::fromLatin1(name));
    return o;
}

} // namespace

void FrmBRCopyByMonthes::SetEntry(double sum, const QDate& lastDayOfMonth, int dayOfMonth) {
    sum_ = sum;
    lastDay_ = lastDayOfMonth;
    day_ = dayOfMonth;
}

void FrmBRCopyByMonthes::Show(bool) {
    cancelled_ = true;
    auto window = std::make_shared<ui::BuiltWidgetForm>(QStringLiteral("frmBRCopyByMonthes"),
                                                        [this]() { return build(); });
    window->Show(true);
}

QWidget* FrmBRCopyByMonthes::build() {
    auto* root = new QWidget;
    root->setWindowTitle(QStringLiteral("Sumos išdėstymas pagal mėnesius"));
    auto* months = edit(root, "txtMonthCount", QStringLiteral("12"));
    auto* day = edit(root, "txtDay", QString::number(day_));
    auto* sum = edit(root, "txtSum", FormatNumberLt(sum_, 2, false));
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Mėnesių skaičius"), months);
    form->addRow(QStringLiteral("Suma"), sum);

    auto* periodSum = option(root, "optPeriodSum", QStringLiteral("Bendra laikotarpio suma "));
    auto* monthSum = option(root, "optMonthSum", QStringLiteral("Mėnesio suma"));
    auto* sums = new QButtonGroup(root);
    sums->addButton(periodSum);
    sums->addButton(monthSum);
    monthSum->setChecked(true);
    auto* lastDay = option(root, "optLastDay", QStringLiteral("Paskutinė mėnesio diena"));
    auto* pointedDay = option(root, "optPointedDay", QStringLiteral("Nurodyta menesio diena"));
    auto* days = new QButtonGroup(root);
    days->addButton(lastDay);
    days->addButton(pointedDay);
    pointedDay->setChecked(true);
    auto* dateBox = new QGroupBox(QStringLiteral("Įrašų data"), root);
    auto* dateLayout = new QVBoxLayout(dateBox);
    dateLayout->addWidget(lastDay);
    dateLayout->addWidget(pointedDay);
    auto* dayRow = new QFormLayout;
    dayRow->addRow(QStringLiteral("Mėnesio diena"), day);
    dateLayout->addLayout(dayRow);
    QObject::connect(pointedDay, &QRadioButton::toggled, day, &QWidget::setEnabled);
    auto* withComment = new QCheckBox(QStringLiteral("Kopijuoti įrašo komentarą"), root);
    withComment->setObjectName(QStringLiteral("chkWithComment"));

    const ui::DialogButtons row = ui::DialogButtons::Make(root);
    QPushButton* ok = row.Ok;
    QPushButton* cancel = row.Cancel;
    QHBoxLayout* buttons = row.Row;

    auto* layout = new QVBoxLayout(root);
    layout->addLayout(form);
    layout->addWidget(periodSum);
    layout->addWidget(monthSum);
    layout->addWidget(dateBox);
    layout->addWidget(withComment);
    layout->addLayout(buttons);

    auto close = [root](bool accepted) {
        if (auto* dialog = qobject_cast<QDialog*>(root->window()))
            accepted ? dialog->accept() : dialog->reject();
    };
    QObject::connect(ok, &QPushButton::clicked, root, [=, this]() {
        choice_.Months = static_cast<int>(NumberFromText(months->text()));
        choice_.Sum = NumberFromText(sum->text());
        choice_.PeriodSum = periodSum->isChecked();
        choice_.LastDay = lastDay->isChecked();
        choice_.Day = static_cast<int>(NumberFromText(day->text()));
        choice_.WithComment = withComment->isChecked();
        cancelled_ = false;
        close(true);
    });
    QObject::connect(cancel, &QPushButton::clicked, root, [close]() { close(false); });
    return root;
}

} // namespace orvo
