// CurrencyRevaluation holds what the revaluation window (frmCurrencyInfluence) decides,
// without the window: for an account and a date it reads the open foreign-currency
// balances, values each at the date's rate, and adds the differences to the operation
// as entries against the accounts of rate-change income (role 536) and expense (role
// 636). Two variants exist and must not be mixed on one account: by operations, every
// open debt revalued by itself (its entry referring to the debt), and by the account's
// balance, one row per currency. A second run on the same account, side and addressee
// while the window is open is refused, and choosing the variant other than the one the
// account already had asks first.
//
// The widget binds its controls to the public members and calls the steps; every box
// goes through the Messages service, so the same steps run from tests without a
// display.
#pragma once

#include "core/dictionary.h"
#include "core/recordset.h"
#include "frame/orvo_object_uio.h"
#include "settlement/currency_revaluation_variant.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>

namespace orvo {

class CurrencyRevaluation {
public:
    enum class Mode { ByOpers, ByAddr };
    enum class PostResult { Done, Failed };

    // One row of the list lvwBROper.
    struct Row {
        // Column BROper: in the ByOpers mode the debt's date, Number and Comment.
        QString Text;
        // The debt's OIDR in the ByOpers mode; empty in the ByAddr mode.
        QString Tag;
        // The debt's addressee (ByOpers).
        QString FOIDR;
        double RestLt = 0;
        double RestCurr = 0;
        // Three letters, or three blanks for the base currency.
        QString CurrCode;
        // The book rate (base per currency unit) and its inverse; 0 when there is none.
        double Rate = 0;
        double InverseRate = 0;
        bool HasSumLt = false;
        double SumLt = 0;
        bool HasInfluence = false;
        double SumInfluence = 0;
        bool Checked = false;
        // The closing row with the totals of RestLt and SumLt.
        bool Total = false;

        // The cell texts in the order of Keys().
        QStringList Cells() const;
    };

    // A book rate (base per currency unit) and its inverse.
    struct RatePair {
        double Rate = 0;
        double Inverse = 0;
    };

    explicit CurrencyRevaluation(OrvoObjectUIOPtr operation);

    // The pair from the day's value of a currency: under a euro base the value is the
    // inverse (units per euro) and the book rate is turned over from it; otherwise the
    // value is the book rate. Each turned-over rate is rounded to six places; a value of
    // 0 or less gives none.
    static RatePair RatesOf(double value, bool baseIsEuro);

    // The column captions (the base currency code added where it belongs) and keys.
    static QStringList Headers(const QString& baseCurrency);
    static QStringList Keys();
    static QString ModeWord(Mode mode);
    // "(operacijų likučių perskaičiavimai)" or "(b/sąskaitos likučių perskaičiavimas)".
    static QString ModeName(Mode mode);

    // Opening: the chart, the accounts of roles 536 and 636 (a warning when either has
    // none), the rates of `today` and the saved variants.
    void Open(const QDate& today);
    // A new date: its rates are read and the list is emptied.
    void SetDate(const QDate& newDate);

    // -1 for the side "D", 1 for "K".
    int SideSign() const;

    // The repeat test; true (after the refusal is shown) when this account, side and
    // addressee were revalued since the window opened.
    bool IsRepeat() const;
    // The mixed-variant test; true when there is no conflict or the user answers Yes.
    bool ConfirmVariantMix();
    // cmdGo: the repeat test, the mixed-variant test, then the reading and the filling.
    // False when a test stopped it or the reading failed.
    bool Go();
    // Fills the list again from the rows last read, with the rates as they are now.
    void Refill();

    // Checks or unchecks a row as a click does; the row's state afterwards.
    bool SetChecked(int index, bool checked);
    // mnuRates on a row: the host's rate window for the row's currency; a changed rate
    // refills the list. False when the row has no currency.
    bool InputRate(int index);

    // cmdOK: one rate-change entry per checked row, in list order.
    PostResult Post();

    // The variants as cmbVariants lists them, those worked since the window opened with
    // the prefix "Perskaičiuota: ".
    QStringList VariantCaptions() const;
    // Takes mode, account, side and addressee of a saved variant; the list is emptied.
    void ChooseVariant(int index);
    // Keeps the window's choice as a variant.
    bool SaveVariant();
    bool DeleteVariant(int index);
    const CurrencyRevaluationVariants& Variants() const { return variants_; }

    // What the window shows and chooses.
    Mode mode = Mode::ByOpers;
    QString account;
    QString addressee;
    QString addresseeText;
    QString side = QStringLiteral("D");
    QDate date;
    QString accountRateIncome;
    QString accountRateExpense;
    DictionaryPtr accounts;
    DictionaryPtr currencyRates;
    DictionaryPtr doneKeys;
    QVector<Row> rows;
    QString status;
    // Told of every status text, so that the window paints it during long work.
    std::function<void(const QString&)> onStatus;

private:
    void setStatus(const QString& text);
    bool read();
    void fill();
    bool validateForCheck(const Row& row) const;
    ValueArray addresseesFor(const Row& row, qint16 sign) const;
    bool keyMatches(const QString& key, const QString& sideLetter, const QString& acc,
                    const QString& addr) const;
    QString doneKey() const;

    OrvoObjectUIOPtr op_;
    RecordsetPtr read_;
    CurrencyRevaluationVariants variants_;
};

} // namespace orvo
