// frmBROperRecord, the card of one entry on the desktop: its date and text, the two
// accounts, the sum in the base currency, each side's currency, rate, currency sum and
// addressees, the trade and VAT marks, navigation over the operation's entries, and the
// save commands ("Išsaugoti", and in its menu the save of the whole operation, with or
// without a new one). It is only shown modally, by ShowBR; every decision is
// EntryEditor's. The window is a WidgetForm held inside the card, so that the card can
// offer the EntryCardForm handle that ShowBR asks for.
#pragma once

#include "operations/entry_card_form.h"
#include "operations/entry_editor.h"
#include "ui/shell/widget_form.h"
#include "ui/widgets/qt_combo_control.h"

#include <QPointer>
#include <memory>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QMenu;
class QToolButton;
class QPushButton;
class QTreeWidget;

namespace orvo {

class FrmBROperRecord : public EntryCardForm {
public:
    FrmBROperRecord();
    ~FrmBROperRecord() override;

    void SetEntries(const RecordsetPtr& br) override { entries_ = br; }
    void SetGUID(const QString& guid) override { guid_ = guid; }
    void SetRestricted(bool restricted) override { restricted_ = restricted; }
    void SetCurrenciesEditable(bool editable) override { currenciesEditable_ = editable; }
    void SetTabNumber(qint16 tab) override { tab_ = tab; }
    void SetAllowedKinds(const QString& kinds) override { allowedKinds_ = kinds; }
    qint16 ResultFlag() const override { return result_; }

    void Show(bool modal) override;
    void UnloadShowOrvoObject() override;

    EntryEditor* Editor() const { return editor_.get(); }

private:
    QWidget* build();
    void showEditor();
    void collect();
    void save(qint16 result);
    void pickAddressee(EntryEditor::Side side, const QString& kind);
    void clearAddressee(EntryEditor::Side side);
    void move(int step);
    void close();
    QTreeWidget* addressList(EntryEditor::Side side) const;

    RecordsetPtr entries_;
    QString guid_;
    bool restricted_ = false;
    bool currenciesEditable_ = true;
    qint16 tab_ = 0;
    QString allowedKinds_;
    qint16 result_ = 0;
    bool filling_ = false;

    std::shared_ptr<ui::WidgetForm> window_;
    std::unique_ptr<EntryEditor> editor_;
    QPointer<QWidget> root_;
    QDateEdit* dtpDate_ = nullptr;
    QLineEdit* txtComment_ = nullptr;
    QLabel* lblSuma_ = nullptr;
    QLineEdit* txtSuma_ = nullptr;
    QComboBox* cmbTradeOperationTypes_ = nullptr;
    QCheckBox* chkVATFlag_ = nullptr;
    QComboBox* cmbVATTariff_ = nullptr;
    QComboBox* cmbVAT_ = nullptr;
    QLabel* lblVAT_ = nullptr;
    QComboBox* cmbAccount_[2] = {nullptr, nullptr};
    QComboBox* cmbCurr_[2] = {nullptr, nullptr};
    QLineEdit* txtRateCurr_[2] = {nullptr, nullptr};
    QLineEdit* txtSumCurr_[2] = {nullptr, nullptr};
    QTreeWidget* lvwAddress_[2] = {nullptr, nullptr};
    QPushButton* cmdPrevious_ = nullptr;
    QPushButton* cmdNext_ = nullptr;
    QCheckBox* chkNavigation_ = nullptr;
    QToolButton* cmdWrite_ = nullptr;
    QPushButton* cmdExit_ = nullptr;
    QMenu* mnuAddresses_ = nullptr;
    EntryEditor::Side menuSide_ = EntryEditor::Debit;
    std::unique_ptr<ui::QtComboControl> comboControls_[4];
};

} // namespace orvo
