// frmCoversInFuture, " Būsimų laikotarpių dengimai": the window that spreads entries of a
// deferred account over later months. The selection frame chooses the account, side and
// period of the entries; the settings frame the operation to be made (group, number,
// date, cover account, period, comment, addressee); the list shows the entries with the
// operations that cover them, and its menu edits the period of a row (through
// frmCoversInFutureParameters), fills the settings' period into the checked rows or
// deletes a covering operation. Every decision is DeferredCovers'; the widget shows what
// it holds. Controls carry their names as objectName.
#pragma once

#include "settlement/deferred_covers.h"
#include "ui/shell/widget_form.h"

#include <memory>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QRadioButton;
class QTreeWidget;

namespace orvo {

class FrmCoversInFuture : public ui::WidgetForm {
public:
    FrmCoversInFuture();
    ~FrmCoversInFuture() override;

    // The logic behind the widget; null before the widget is built.
    DeferredCovers* Covers() const { return covers_.get(); }

    // The menu of the list, by the numbers of its items (101 to 105).
    void RunMenu(int number);

protected:
    QWidget* BuildWidget() override;

private:
    void buildMenu(QWidget* root);
    void showSide();
    void showSettings();
    void collect();
    void fill();
    void paint();
    void readChecks();
    void editPeriod();
    void pickAddressee();
    void write();
    void onDesktop(bool cover);
    int currentRow() const;

    std::unique_ptr<DeferredCovers> covers_;
    QWidget* root_ = nullptr;
    QGroupBox* frameSelectBR_ = nullptr;
    QGroupBox* frameSettings_ = nullptr;
    QLabel* lblTitle_ = nullptr;
    QComboBox* cmbAcc_ = nullptr;
    QRadioButton* optDebit_ = nullptr;
    QRadioButton* optCredit_ = nullptr;
    QDateEdit* dtpDate1_ = nullptr;
    QDateEdit* dtpDate2_ = nullptr;
    QCheckBox* chkOnlyNotCovered_ = nullptr;
    QCheckBox* chkDetailView_ = nullptr;
    QLineEdit* txtGroup_ = nullptr;
    QLineEdit* txtNumber_ = nullptr;
    QDateEdit* dtpOperDate_ = nullptr;
    QComboBox* cmbCoverAcc_ = nullptr;
    QDateEdit* dtpDateFrom_ = nullptr;
    QLineEdit* txtMonthCount_ = nullptr;
    QLineEdit* txtCoverSum_ = nullptr;
    QLineEdit* txtComment_ = nullptr;
    QLineEdit* txtAddresse_ = nullptr;
    QTreeWidget* lvwRows_ = nullptr;
    QMenu* menu_ = nullptr;
};

} // namespace orvo
