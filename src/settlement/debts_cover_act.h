// DebtsCoverAct is the printed act of mutual set-off ("TARPUSAVIO SKOLŲ UŽSKAITYMO
// AKTAS") as data: the heads of the two firms, the title and date in words, the
// statement of the parties, the table of the covered documents with the debit and credit
// columns and their totals, the balance left after the set-off, the request to return a
// signed copy and the signature block. It is made from the checked rows of a cover, so
// the page writer only lays it out.
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo {

class DebtsCover;

// A firm as the act names it.
struct DebtsCoverActParty {
    QString Name;
    QString Code;
    QString Phone;
    QString Fax;
    // "Įmonės kodas: ..., tel. ..., faks. ...", the parts that are known.
    QString CodeLine() const;
};

// A row of the table, by the keyed columns DocNumber, DocDate, Debit, Credit.
struct DebtsCoverActRow {
    QString DocNumber;
    QString DocDate;
    QString Debit;
    QString Credit;
    bool Bold = false;
};

struct DebtsCoverAct {
    DebtsCoverActParty MyFirm;
    DebtsCoverActParty Client;
    QString Title;
    QDate Date;
    QString DateInWords;
    QString Statement;
    QStringList Header;
    QVector<DebtsCoverActRow> Rows;
    double TotalDebit = 0;
    double TotalCredit = 0;
    QString Request;

    static QString Underline(int length) { return QString(length, QLatin1Char('_')); }
    // Every text of the act in reading order, one line each: what the page shows.
    QStringList Lines() const;

    // The act of the checked rows of `cover`, for the firm keeping the books and the
    // addressee of the primary side.
    static DebtsCoverAct Make(const DebtsCover& cover, const DebtsCoverActParty& myFirm,
                              const DebtsCoverActParty& client);
    // The firm that keeps the books and the firm of a reference, from the host.
    static DebtsCoverActParty OwnFirm();
    static DebtsCoverActParty FirmOf(const QString& reference);
};

} // namespace orvo
