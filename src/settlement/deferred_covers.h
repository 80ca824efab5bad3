// DeferredCovers is what the window of deferred-period operations (frmCoversInFuture)
// knows and decides, kept apart from its widgets: the entries of a deferred account in a
// period with the operations that already spread them over months, the period of each
// row, the checks before writing, and the operations it writes, one per checked row with
// a monthly entry for each month that writes off deferred expense (debit side) or books
// deferred income (credit side). The last choices are remembered in the user's settings.
// Boxes go through the Messages service; the form shows what this class holds.
#pragma once

#include "core/results.h"
#include "frame/orvo_object_uio.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo {

class DeferredCovers {
public:
    // One line of the list: a deferred entry (Kind Entry), one of the entries that cover
    // it (Kind Cover, shown in the detailed view) or the closing total (Kind Total).
    struct Row {
        enum class Kind { Entry, Cover, Total };
        Kind RowKind = Kind::Entry;
        // The deferred entry's reference (O0201500 + its number) and GUID.
        QString Key;
        QString GUID;
        QDate DateD;
        QString Number;
        double SumA = 0;
        // The period: the first month as yyyy.mm and how many months; empty when unset.
        QString MonthFrom;
        QString MonthCount;
        QString Comment;
        // The covering operation as "date Nr. number", and its reference.
        QString RelatedBROper;
        QString RelatedOIDR;
        QDate BRDate;
        double BRSumA = 0;
        QString AccountD;
        QString AccountC;
        bool Checked = false;
    };

    explicit DeferredCovers(OrvoObjectUIOPtr operation);

    // The settings' section and keys under which the last choices are kept.
    static QString SettingsSection() { return QStringLiteral("O0201500"); }

    // Rights, the chart, the remembered choices, the group and the next number.
    void Load();

    // The selection.
    QString Account;
    bool ByDebit = true;
    QDate Date1;
    QDate Date2;
    bool OnlyNotCovered = true;
    bool DetailView = false;
    // The operation's settings.
    QString GroupText;
    QString Mask;
    qint32 GroupID = 0;
    QString Number;
    QDate OperDate;
    QString CoverAccount;
    QDate DateFrom;
    QString MonthCount;
    QString Comment;
    QString AddresseeOIDR;
    QString AddresseeText;
    RightsRecord Rights;

    // The words that the side chooses: the window's title, the caption of
    // chkOnlyNotCovered and of the RelatedBROper column.
    QString Title() const;
    QString OnlyNotCoveredCaption() const;
    QString RelatedCaption() const;
    static QStringList ColumnCaptions();
    static QStringList ColumnKeys();

    // The accounts of the chart, for the two boxes.
    QStringList Accounts() const { return accounts_; }

    // cmdFill: the rows read anew; false (and the reason shown) when the read failed.
    bool Fill();
    QVector<Row> Rows;

    // The month text of a date ("2024.03") and the date of a month text (its first day).
    static QString MonthText(const QDate& date);
    static QDate MonthDate(const QString& month);
    // The monthly sums of `sum` over `months`: each round(sum / months, 2), the last the
    // rest, so that they add up to the sum.
    static QVector<double> MonthlySums(double sum, int months);

    // mnuPeriod: the period of one row; mnuFillPeriod: the settings' period into every
    // checked entry row.
    void SetPeriod(int row, const QString& monthFrom, const QString& monthCount);
    void FillPeriod();
    // cmdSelectAll: checks every entry row, or clears them all when all were checked.
    void ToggleAll();

    // The first fault of the checked rows, or empty: the row's " Nr. " and number, a line
    // break and the fault.
    QString CheckRows() const;
    // cmdWrite: the checks, then one stored operation per checked row; the choices are
    // remembered and the list filled anew. False when a check or a save failed (the text
    // shown in an error box). `Created` holds the references of the operations stored.
    bool Write();
    QStringList Created;

    // mnuDelete on a row: asks, then deletes the operation that covers it.
    bool DeleteCover(int row);

    // Stores the six remembered choices.
    void SaveSettings() const;

private:
    QString writeRow(const Row& row, const QString& number);
    QString nextNumber();

    OrvoObjectUIOPtr op_;
    QStringList accounts_;
};

} // namespace orvo
