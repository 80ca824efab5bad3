// AccountsClosing is what the year-end closing window (frmAccountsClosing) knows and
// decides, kept apart from its widgets: a closing is an operation of kind O0201506 whose
// entries zero the income accounts (class 5) and the expense accounts (class 6) into a
// transit account and carry the difference to the retained profit or loss account. The
// seven choices are kept in the operation's Parameters, so that a saved closing can be
// reopened and run again. Boxes go through the Messages service.
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "frame/orvo_object_uio.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo {

class AccountsClosing {
public:
    // The seven choices, in the order they are kept in Parameters.
    struct Choices {
        QString Acc5;
        QString Acc59;
        QString Acc6;
        QString Acc69;
        QString Acc39;
        QString Profit;
        QString Loss;

        QString Join() const;
        // The choices of a Parameters text; missing fields stay empty.
        static Choices Split(const QString& parameters);
        // 5, 59, 6, 69, 391, 340 and 341, each only when `chart` holds it.
        static Choices Defaults(const QStringList& chart);
    };

    // One line of the entry list: the entry's GUID and its cells, in the order of
    // EntryHeaders.
    struct EntryRow {
        QString GUID;
        QStringList Cells;
    };

    // One line of the printed table.
    struct PrintLine {
        QString Code;
        QString Debit;
        QString Credit;
        double SumA = 0;
        QString Name;
    };

    explicit AccountsClosing(OrvoObjectUIOPtr operation);

    OrvoObjectUIOPtr Object() const { return op_; }
    static QStringList EntryHeaders();
    static QString CommentText() { return QStringLiteral("Sąskaitų uždarymas"); }

    // The chart, the choices, the group, the date and the number.
    void Load();
    bool IsNew() const;

    Choices Parameters;
    QStringList Accounts;
    QString Title;
    QString GroupRef;
    QString GroupText;
    QString Serija;
    qint16 SeriesIndication = 0;
    QString Mask;
    QString Number;
    QDate Date;
    RightsRecord Rights;
    bool Changed = false;
    // The status text while the entries are prepared, empty when idle.
    QString Status;
    double Total5 = 0;
    double Total6 = 0;
    QString Total5Text;
    QString Total6Text;
    QVector<EntryRow> Rows;

    // cmdGo: the balances at Date, the old entries removed and new ones generated.
    bool Fill();
    // The generation over balance rows (Account, SumA, AccType): the entries of the two
    // classes and the result entry, Total5 and Total6 set. False when an entry could not
    // be made.
    bool Generate(const RecordsetPtr& totals);
    void PaintEntries();

    // cmdWrite; true when stored.
    bool Write();
    // SSCNew: a new closing in the same group.
    void NewClosing();
    // cmdOperGroup: the group of that reference ("O0201400" + number), refused with the
    // warning when it is of another kind.
    bool ChangeGroup(const QString& reference);
    // lblNumber: a new number for a new closing.
    void RefreshAutoNumber();
    // mnuBR and a double click: the entry card.
    void OpenEntry(const QString& guid);
    // mnuBRDelete and mnuDeleteAll, each asking first.
    bool DeleteEntries(const QStringList& guids);
    bool DeleteAll();

    // The printed closing: the table of entries, with the account names.
    QVector<PrintLine> PrintLines() const;
    QString BaseCurrency() const;

private:
    void loadGroup();
    void loadHeader();
    void setTotals();
    bool createBR(double sum, const QString& debit, const QString& credit);
    RecordsetPtr entries() const;

    OrvoObjectUIOPtr op_;
};

} // namespace orvo
