// OperationEditor is what the operation editor (frmBROper) knows and decides, kept
// apart from its widgets so that every rule can be tested without a display: the load
// of an operation in its group (rights, title, group values, series and number, the
// default template, the related rows), the rows of the entry list with the warning
// mark of the entries that fail their checks, what the buttons may do, the entry card
// and the next action run after opening, templates, free entries, copying an entry
// over months, deleting, the date change, the save in its fixed order, undo, a new
// operation in the same group, and closing. Boxes go through the Messages service; the
// form shows what the editor holds and calls it on every click.
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "frame/orvo_object_uio.h"
#include "operations/copy_by_months_form.h"

#include <QDate>
#include <QStringList>
#include <QVector>

namespace orvo {

class OperationEditor {
public:
    // One row of the entry list: its GUID, the cells (date, debit and credit accounts,
    // sum, currency of each side, the addressees) and whether it passed TestOper.
    struct EntryRow {
        QString GUID;
        QStringList Cells;
        bool Passed = true;
    };

    // What the widget does after the entry card closed.
    enum class CardFollowup { None, Write, WriteAndNew };

    explicit OperationEditor(OrvoObjectUIOPtr operation);

    OrvoObjectUIOPtr Object() const { return op_; }

    // Load, every step in order. `modal`: read only, no new and no close buttons.
    void Load(bool modal);

    // The form's state.
    bool Modal = false;
    RightsRecord Rights;
    bool IsNew() const;
    QString Title;
    bool PrintEnabled = false;
    bool ProtocolEnabled = false;
    // optBRBalance and optRelatedBRList.
    bool ViewsEnabled = false;
    bool GroupAndCommentPickEnabled = false;
    QString GroupRef;
    QString GroupText;
    QString GroupPreview;
    QString PreviewPath;
    qint32 BRTemplateID = 0;
    qint32 DefaultTemplateID = 0;
    QString SeriesDefault;
    qint16 SeriesIndication = 0;
    QString Mask;
    QString NextAction;
    bool Changed = false;
    // Change handling is suspended while the form is being filled.
    bool Suspended = false;
    // The first entry's marks.
    qint16 FirstTradeType = 0;
    double FirstVATTariff = 0;
    qint16 FirstRestoringSign = 0;

    // The fields on screen; the widget writes what the user typed before Write.
    QDate Date;
    QString Serija;
    QString Number;
    QString Comment;
    int VATIndex = 0;
    bool VATVisible = false;
    bool ShowSeries = false;

    QVector<EntryRow> Rows;

    // The balance view: each account met on either side of the entries, with its debit
    // and credit totals, in the order first met.
    struct BalanceRow {
        QString Account;
        double Debit = 0;
        double Credit = 0;
    };
    QVector<BalanceRow> Balance() const;
    RecordsetPtr Related;
    // Timer1 is to run the next action once, shortly after opening.
    bool TimerPending = false;

    // Load's steps, also run again by save, undo, a new operation and a group change.
    void SetTitleAndCommands();
    // Reads the group of GroupRef; false (and GroupRef emptied) when its form is not
    // this operation's.
    bool LoadGroup();
    void LoadFields();
    void LoadNumber();
    void PaintEntries();
    void RunDefaultTemplate();
    void ReadRelatedRows();

    // Enabling of the write, new and undo commands.
    bool CanWrite() const;
    bool CanNew() const;
    bool CanCancel() const;

    // The entry card on an entry: ShowBR with the card restricted when there is no edit
    // right. A written entry repaints the list (the first entry also gives its date to
    // the operation); a cancelled free or template entry is removed. Tells what the
    // form runs next.
    CardFollowup OpenEntryCard(const QString& guid, qint16 tab = 0);
    QString FirstEntryGUID() const;

    // The timer's action: the next action as the group or the load left it.
    CardFollowup RunNextAction();

    // The panel's settlement windows ("Skolų dengimas", "Valiutos perskaičiavimas",
    // "Valiutos pirkimas/pardavimas"), on the same operation; false for no such window.
    bool OpenSettlementForm(const QString& caption);

    // mnuFreeTemplate: a free entry and its card.
    CardFollowup AddFreeEntry();
    // mnuAddTemplate (replace false) and mnuOperTemplate (replace true) once the chooser
    // answered a template and a sum: a change of template deletes every entry first.
    // True when the entries were added; the next action is then "TemplateBR".
    bool ApplyTemplate(bool replace, qint32 templateId, double sum);
    // mnuBRCopy on an entry: the chooser's choice, then the copies.
    bool CopyEntry(const QString& guid);
    // The copies themselves, as the choice says; false when an AddBR failed.
    bool CopyEntryByMonths(const QString& guid, const CopyByMonthsChoice& choice);
    // mnuBRDelete and mnuDeleteAll, after the question.
    bool DeleteEntries(const QStringList& guids);
    bool DeleteAllEntries();

    // dtpDate changed to `date`; false when the references refuse it (the control goes
    // back to Date).
    bool ChangeDate(const QDate& date);

    // cmdWrite, every step in order; true when stored. `CommentCut` tells that the
    // comment was shortened to 1000 characters.
    bool Write();
    bool CommentCut = false;
    // cmdCancel.
    void Cancel();
    // After undo: the related rows are shown first when there are some and no entries.
    bool ShowRelatedFirst() const;
    // SSCNew: a new operation in the same group.
    void NewInGroup();
    // SSCClose: false when the user chose to stay.
    bool ConfirmClose();
    // lblNumber click: a new number for a new operation with a mask.
    void RefreshAutoNumber();
    // cmdOperGroup: the host's group picker; true when a group was set.
    bool PickGroup();
    // cmdCommentList.
    void PickComment();
    // cmdPrint and mnuDebtsCoverConverting: bridge calls through the shell.
    void Print();
    void DebtsCoverConverting();
    // mnuAutoNumber.
    void SetAutoNumberByHand();
    // mnuProtocol.
    void ShowProtocol();

    // The register names of cmbVAT.
    static QStringList VATRegisters();
    static constexpr int CommentLimit = 1000;

private:
    RecordsetPtr entries() const;
    void markChanged() { Changed = true; }
    CardFollowup followupOf(qint16 result) const;
    QString groupId() const;
    // Whether the stored operation can no longer be read: someone else deleted it.
    bool deletedMeanwhile() const;

    OrvoObjectUIOPtr op_;
    // The group's Parameters: the sort of the next action of a new operation.
    QString groupParameters_;
};

} // namespace orvo
