// frmBROper, the editor of a plain financial operation on the desktop: the header (date,
// series and number, comment, group, VAT register), the list of entries with its menu
// (templates, free entry, the entry card, references, deleting, copying over months,
// the protocol), the views of the operation's balance and of the references from other
// operations, and the commands. Every decision is OperationEditor's; the widget shows
// what the editor holds and passes each click on. Controls carry their names as
// objectName, so tests and scripts find them.
#pragma once

#include "operations/operation_editor.h"
#include "ui/shell/widget_form.h"

#include <QPointer>
#include <memory>

class QAction;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTimer;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace orvo {

class FrmBROper : public ui::WidgetForm {
public:
    FrmBROper();
    ~FrmBROper() override;

    // The editor behind the widget; null before the widget is built.
    OperationEditor* Editor() const { return editor_.get(); }

    // The column headers of the two lists.
    static QStringList EntryHeaders();
    static QStringList RelatedHeaders();

protected:
    QWidget* BuildWidget() override;

private:
    void buildMenus(QWidget* root);
    void refresh();
    void updateCommands();
    void fieldEdited();
    void collect();
    void write();
    void cancel();
    void newInGroup();
    void closeForm();
    void openCard(const QString& guid);
    void openSelectedCard();
    void follow(OperationEditor::CardFollowup followup);
    void runTimer();
    void dateLeft();
    void addTemplate(bool replace);
    void showReference(qint16 sign);
    void relatedToDesktop();
    QStringList selectedGUIDs() const;
    QString currentGUID() const;
    bool eventFilterKey(QObject* watched, int key, Qt::KeyboardModifiers modifiers);

    std::unique_ptr<OperationEditor> editor_;
    bool filling_ = false;

    QPointer<QWidget> root_;
    QDateEdit* dtpDate_ = nullptr;
    QLabel* lblNumber_ = nullptr;
    QLineEdit* txtSerija_ = nullptr;
    QLineEdit* txtNumber_ = nullptr;
    QLineEdit* txtComment_ = nullptr;
    QPushButton* cmdCommentList_ = nullptr;
    QLineEdit* txtGroup_ = nullptr;
    QPushButton* cmdOperGroup_ = nullptr;
    QComboBox* cmbVAT_ = nullptr;
    QLabel* lblVATRegister_ = nullptr;
    QRadioButton* optBRBalance_ = nullptr;
    QRadioButton* optRelatedBRList_ = nullptr;
    QStackedWidget* views_ = nullptr;
    QTreeWidget* lvwBRRecords_ = nullptr;
    QTreeWidget* lvwBalance_ = nullptr;
    QTreeWidget* lvwRelatedBR_ = nullptr;
    QPushButton* cmdPrint_ = nullptr;
    QPushButton* cmdWrite_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
    QPushButton* SSCNew_ = nullptr;
    QPushButton* SSCClose_ = nullptr;
    QToolButton* SOPanel_ = nullptr;
    QTimer* Timer1_ = nullptr;
    QMenu* mnuMainBR_ = nullptr;
    QMenu* mnuRelatedBR_ = nullptr;
    QMenu* mnuSOPanel_ = nullptr;
    QAction* mnuProtocol_ = nullptr;

    friend class FrmBROperKeys;
};

} // namespace orvo
