#include "settlement/forms/frm_transfer_sum.h"

#include "core/null_readers.h"
#include "core/number_text.h"
#include "frame/catalogue_data_access.h"
#include "ui/widgets/dialog_buttons.h"
#include "ui/widgets/number_field.h"

#include <QDialog>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace orvo {

namespace {

QLabel* label(QWidget* parent, const char* name, const QString& text) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(QString::fromLatin1(name));
    return l;
}

// Enter in the sum field leaves it and then presses OK; the whole text is selected when
// the field is entered.
class SumKeys : public QObject {
public:
    SumKeys(std::function<void()> enter, QLineEdit* edit)
        : QObject(edit), enter_(std::move(enter)), edit_(edit) {}

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::FocusIn) {
            QTimer::singleShot(0, edit_, [e = edit_]() { e->selectAll(); });
            return false;
        }
        if (event->type() != QEvent::KeyPress)
            return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return false;
        enter_();
        return true;
    }

private:
    std::function<void()> enter_;
    QLineEdit* edit_;
};

} // namespace

FrmTransferSum::FrmTransferSum() : ui::WidgetForm(QStringLiteral("frmTransferSum")) {}

bool FrmTransferSum::CurrencyRow() const {
    return !input_.Code.trimmed().isEmpty();
}

void FrmTransferSum::LeaveSum() {
    if (!txtSum_)
        return;
    const QString typedText = txtSum_->text().trimmed();
    if (typedText.isEmpty())
        return;
    const double typed = NumberFromText(typedText);
    const double limit = CurrencyRow() ? input_.CurrencyBalance + input_.OldPaymentCurr
                                       : input_.BaseBalance + input_.OldPayment;
    txtSum_->setText(FormatNumberLt(typed > limit ? limit : typed, 2, false));
    // The base sum follows what was typed, before the limit.
    if (CurrencyRow())
        lblSum_->setText(FormatNumberLt(typed * input_.PaymentRate + 0.00001, 2, false));
}

void FrmTransferSum::accept() {
    newBase_ = 0;
    newCurr_ = 0;
    if (!CurrencyRow()) {
        if (!txtSum_->text().trimmed().isEmpty())
            newBase_ = NumberFromText(txtSum_->text());
    } else {
        if (!lblSum_->text().trimmed().isEmpty())
            newBase_ = NumberFromText(lblSum_->text());
        if (!txtSum_->text().trimmed().isEmpty())
            newCurr_ = NumberFromText(txtSum_->text());
    }
    cancelled_ = false;
    if (auto* dialog = qobject_cast<QDialog*>(root_->window()))
        dialog->accept();
}

QWidget* FrmTransferSum::BuildWidget() {
    cancelled_ = true;
    auto* root = new QWidget;
    root_ = root;
    root->setWindowTitle(QStringLiteral(" Sumos įvedimas"));
    const QString base = NzString(Catalogue::GetBaseCurrency());
    const bool currency = CurrencyRow();
    const QString code = input_.Code.trimmed();

    auto* grid = new QGridLayout;
    grid->addWidget(label(root, "lblLikutisLt", QStringLiteral("Likutis :")), 0, 0);
    grid->addWidget(label(root, "lblSumLikutisLt", FormatNumberLt(input_.BaseBalance, 2)), 0, 1);
    grid->addWidget(label(root, "lblBaseCurrency1", base), 0, 2);
    auto* likutisCurr = label(root, "lblLikutisCurr", FormatNumberLt(input_.CurrencyBalance, 2));
    auto* code1 = label(root, "lblCurrCode1", code);
    grid->addWidget(likutisCurr, 1, 1);
    grid->addWidget(code1, 1, 2);

    txtSum_ = new QLineEdit(root);
    txtSum_->setObjectName(QStringLiteral("txtSum"));
    lblSum_ = label(root, "lblSum", QString());
    auto* code2 = label(root, "lblCurrCode2", code);
    auto* base2 = label(root, "lblBaseCurrency2", base);
    auto* rate = label(root, "lblRate", QStringLiteral("Skolos kursas"));
    auto* rateValue = label(root, "lblRateValue", FormatNumberLt(input_.RowRate, 9, false));
    auto* currentRate = label(root, "lblCurrentRate", QStringLiteral("Apm. kursas"));
    auto* currentRateValue =
        label(root, "lblCurrentRateValue", FormatNumberLt(input_.PaymentRate, 9, false));
    if (currency) {
        // The typed field takes the place of the base sum, which moves beside it.
        txtSum_->setText(FormatNumberLt(input_.OldPaymentCurr, 2, false));
        lblSum_->setText(FormatNumberLt(input_.OldPayment, 2, false));
        grid->addWidget(txtSum_, 2, 1);
        grid->addWidget(code2, 2, 2);
        grid->addWidget(lblSum_, 3, 1);
        grid->addWidget(base2, 3, 2);
        grid->addWidget(rate, 4, 0);
        grid->addWidget(rateValue, 4, 1);
        grid->addWidget(currentRate, 5, 0);
        grid->addWidget(currentRateValue, 5, 1);
    } else {
        txtSum_->setText(FormatNumberLt(input_.OldPayment, 2, false));
        grid->addWidget(txtSum_, 2, 1);
        grid->addWidget(base2, 2, 2);
        const QList<QWidget*> hidden = {lblSum_, code2,     likutisCurr, code1,
                                        rate,    rateValue, currentRate, currentRateValue};
        for (QWidget* w : hidden)
            w->hide();
    }
    ui::NumberField::Attach(txtSum_, 2)->OnLeft = [this]() { LeaveSum(); };
    txtSum_->installEventFilter(new SumKeys(
        [this]() {
            LeaveSum();
            accept();
        },
        txtSum_));

    const ui::DialogButtons row = ui::DialogButtons::Make(root);
    QPushButton* ok = row.Ok;
    QPushButton* cancel = row.Cancel;
    QHBoxLayout* buttons = row.Row;
    auto* layout = new QVBoxLayout(root);
    layout->addLayout(grid);
    layout->addLayout(buttons);

    QObject::connect(ok, &QPushButton::clicked, root, [this]() { accept(); });
    QObject::connect(cancel, &QPushButton::clicked, root, [this]() {
        cancelled_ = true;
        if (auto* dialog = qobject_cast<QDialog*>(root_->window()))
            dialog->reject();
    });
    return root;
}

} // namespace orvo
