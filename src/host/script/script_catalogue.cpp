#include "host/script/script_catalogue.h"

#include "core/dates.h"
#include "core/dictionary.h"
#include "core/kind_title.h"
#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/recordset.h"
#include "core/rounding.h"
#include "core/today.h"
#include "frame/catalogue.h"
#include "host/sum_by_words.h"

#include <QMap>
#include <functional>

namespace orvo::host {

namespace {

// The parameters of one call, read by position. The first reading that fails keeps
// its text in `error`; later readings then give neutral values, and the adapter's
// answer is thrown away by the caller.
class Args {
public:
    Args(const QString& routine, const ValueArray& values) : routine_(routine), values_(values) {}

    int Count() const { return values_.size(); }
    bool Has(int i) const { return i < values_.size(); }
    const QString& Error() const { return error_; }

    Value Raw(int i) const { return Has(i) ? values_.at(i) : Value(); }

    double Number(int i) {
        bool ok = false;
        const double d = Raw(i).toDouble(&ok);
        if (!ok || Raw(i).isNull())
            fail(i, QStringLiteral("skaičius"));
        return ok ? d : 0.0;
    }
    int Whole(int i) {
        bool ok = false;
        const qint32 n = Raw(i).toInt32(&ok);
        if (!ok || Raw(i).isNull())
            fail(i, QStringLiteral("sveikasis skaičius"));
        return ok ? n : 0;
    }
    bool Flag(int i) {
        bool ok = false;
        const bool b = Raw(i).toBool(&ok);
        if (!ok || Raw(i).isNull())
            fail(i, QStringLiteral("true arba false"));
        return ok && b;
    }
    QString Text(int i) {
        const Value v = Raw(i);
        if (v.kind() == Value::Kind::Array || v.kind() == Value::Kind::Recordset ||
            v.kind() == Value::Kind::Dictionary || v.kind() == Value::Kind::Object)
            fail(i, QStringLiteral("tekstas"));
        return v.toString();
    }
    QDate Date(int i) {
        bool ok = false;
        const QDate d = Raw(i).toDate(&ok);
        if (!ok || !d.isValid())
            fail(i, QStringLiteral("data (YYYY-MM-DD)"));
        return d;
    }
    OrvoObjectUIOPtr Object(int i) {
        // An absent or Null caller is allowed: the routines then make their own object.
        if (Raw(i).isNull())
            return nullptr;
        const OrvoObjectUIOPtr uio = AsDataObject(Raw(i));
        if (!uio)
            fail(i, QStringLiteral("duomenų objektas ({\"ref\":\"vardas\"})"));
        return uio;
    }
    RecordsetPtr Rows(int i) {
        const RecordsetPtr rs = Raw(i).toRecordset();
        if (!rs && !Raw(i).isNull())
            fail(i, QStringLiteral("įrašų rinkinys"));
        return rs;
    }

private:
    void fail(int i, const QString& what) {
        if (error_.isEmpty())
            error_ = QStringLiteral("%1: %2-asis parametras turi būti %3.")
                         .arg(routine_)
                         .arg(i + 1)
                         .arg(what);
    }

    QString routine_;
    const ValueArray& values_;
    QString error_;
};

using Adapter = std::function<Value(Args&)>;

struct Entry {
    QString Signature;
    QString Doc;
    int MinArgs = 0;
    int MaxArgs = 0;
    Adapter Run;
};

Value dateValue(const QDate& d) {
    return d.isValid() ? Value(d) : Value();
}

Value rightsValue(const RightsRecord& r) {
    auto d = Dictionary::Create();
    d->SetItem(QStringLiteral("Read"), Value(r.Read));
    d->SetItem(QStringLiteral("Delete"), Value(r.Delete));
    d->SetItem(QStringLiteral("Edit"), Value(r.Edit));
    d->SetItem(QStringLiteral("Create"), Value(r.Create));
    d->SetItem(QStringLiteral("Fifth"), Value(r.Fifth));
    return Value(d);
}

QString baseCurrencyText() {
    const QString base = Catalogue::GetBaseCurrency().toString();
    return base.isEmpty() ? QStringLiteral("EUR") : base;
}

void add(QMap<QString, Entry>& t, const QString& name, const QString& signature, const QString& doc,
         int minArgs, int maxArgs, Adapter run) {
    t.insert(name, Entry{signature, doc, minArgs, maxArgs, std::move(run)});
}

// Rounding, numbers and texts (core).
void addFormatting(QMap<QString, Entry>& t) {
    add(t, "FormatAmount", "FormatAmount(Value)",
        "a sum as a list cell: two places, a single blank between -0.01 and 0.01", 1, 1,
        [](Args& a) { return Value(FormatAmount(a.Number(0))); });
    add(t, "FormatNumberLt", "FormatNumberLt(Value, Places[, GroupDigits])",
        "the number with a decimal comma and blanks between thousands", 2, 3, [](Args& a) {
            return Value(FormatNumberLt(a.Number(0), a.Whole(1), a.Has(2) ? a.Flag(2) : true));
        });
    add(t, "Round", "Round(Value[, Places])", "banker's rounding", 1, 2,
        [](Args& a) { return Value(Round(a.Number(0), a.Has(1) ? a.Whole(1) : 0)); });
    add(t, "RoundHalfUp", "RoundHalfUp(Value, Places)", "Int(Value * 10^Places + 0.5) / 10^Places",
        2, 2, [](Args& a) { return Value(RoundHalfUp(a.Number(0), a.Whole(1))); });
    add(t, "RoundSum", "RoundSum(Value, FourPlaces)",
        "banker's rounding of Value + 0.0000001 to four or two places", 2, 2,
        [](Args& a) { return Value(RoundSum(a.Number(0), a.Flag(1))); });
    add(t, "RoundBaseSum", "RoundBaseSum(Value)",
        "banker's rounding of Value + 0.00001 to two places", 1, 1,
        [](Args& a) { return Value(RoundBaseSum(a.Number(0))); });
    add(t, "NumberFromText", "NumberFromText(Text)",
        "the number a Lithuanian user typed; 0 if none", 1, 1,
        [](Args& a) { return Value(NumberFromText(a.Text(0))); });
    add(t, "IsNumericText", "IsNumericText(Text)", "whether the text is one number", 1, 1,
        [](Args& a) { return Value(IsNumericText(a.Text(0))); });
    add(t, "RateFromText", "RateFromText(Text[, BaseIsEuro])",
        "a typed rate as base currency per foreign unit (the book's base when no flag)", 1, 2,
        [](Args& a) {
            const QString text = a.Text(0);
            return Value(a.Has(1) ? RateFromText(text, a.Flag(1)) : Catalogue::RateFromText(text));
        });
    add(t, "ValDot", "ValDot(Text)", "the number at the start of the text, commas read as dots", 1,
        1, [](Args& a) { return Value(ValDot(a.Text(0))); });
    add(t, "FirstWord", "FirstWord(Text)", "the trimmed text up to its first blank", 1, 1,
        [](Args& a) { return Value(FirstWord(a.Text(0))); });
    add(t, "FilterNumericKey", "FilterNumericKey(KeyCode, CurrentText)",
        "the key a number field keeps, 0 to drop it", 2, 2, [](Args& a) {
            return Value(static_cast<qint32>(FilterNumericKey(a.Whole(0), a.Text(1))));
        });
    add(t, "FormatTypedNumber", "FormatTypedNumber(Text[, Places[, Format]])",
        "a number field's text when the field is left", 1, 3, [](Args& a) {
            return Value(FormatTypedNumber(a.Text(0), a.Has(1) ? a.Whole(1) : 2,
                                           a.Has(2) ? a.Flag(2) : true));
        });
    add(t, "KindTitle", "KindTitle(Code, DefaultTitle)", "the title of a document kind", 2, 2,
        [](Args& a) { return Value(KindTitle(a.Text(0), a.Text(1))); });
    add(t, "SumByWords", "SumByWords(Sum[, CurrencyCode])",
        "the sum in Lithuanian words, worded by the host (the book's base currency by default)", 1,
        2, [](Args& a) {
            return Value(SumByWords(a.Number(0), a.Has(1) ? a.Text(1) : QStringLiteral("   "),
                                    baseCurrencyText()));
        });
}

// Dates (core).
void addDates(QMap<QString, Entry>& t) {
    add(t, "FirstOfMonth", "FirstOfMonth(Date)", "the first day of the date's month", 1, 1,
        [](Args& a) { return dateValue(FirstOfMonth(a.Date(0))); });
    add(t, "LastOfMonth", "LastOfMonth(Date)", "the last day of the date's month", 1, 1,
        [](Args& a) { return dateValue(LastOfMonth(a.Date(0))); });
    add(t, "AddMonths", "AddMonths(Date, Months)",
        "months on or back, kept to the target month's last day", 2, 2,
        [](Args& a) { return dateValue(AddMonths(a.Date(0), a.Whole(1))); });
    add(t, "FormatLongDate", "FormatLongDate(Part, Date)",
        "\"m\" the month's genitive, \"d\" the day, \"yyyy\" the year, else \"2024 m. kovo 15 d.\"",
        2, 2, [](Args& a) { return Value(FormatLongDate(a.Text(0), a.Date(1))); });
    add(t, "MonthGenitive", "MonthGenitive(Month)", "the genitive name of month 1..12", 1, 1,
        [](Args& a) { return Value(MonthGenitive(a.Whole(0))); });
    add(t, "DateParam", "DateParam(Date)", "the date as the business object takes it, yyyy.mm.dd",
        1, 1, [](Args& a) { return Value(DateParam(a.Date(0))); });
    add(t, "DateFromParam", "DateFromParam(Text)", "a yyyy.mm.dd text read back; Null if none", 1,
        1, [](Args& a) { return dateValue(DateFromParam(a.Text(0))); });
    add(t, "Today", "Today()", "the date the system takes for today", 0, 0,
        [](Args&) { return Value(Today()); });
}

// Null-safe readers (core).
void addReaders(QMap<QString, Entry>& t) {
    add(t, "NzLong", "NzLong(Value)", "Null as 0, else a 32-bit whole number", 1, 1,
        [](Args& a) { return Value(NzLong(a.Raw(0))); });
    add(t, "NzInt", "NzInt(Value)", "Null as 0, else a 16-bit whole number", 1, 1,
        [](Args& a) { return Value(NzInt(a.Raw(0))); });
    add(t, "NzDouble", "NzDouble(Value)", "Null as 0.0, else a number", 1, 1,
        [](Args& a) { return Value(NzDouble(a.Raw(0))); });
    add(t, "NzString", "NzString(Value)", "Null as \"\", else the value's text", 1, 1,
        [](Args& a) { return Value(NzString(a.Raw(0))); });
    add(t, "NzDate", "NzDate(Value, DefaultDate)", "Null (or no date) as the default date", 2, 2,
        [](Args& a) { return dateValue(NzDate(a.Raw(0), a.Date(1))); });
}

// The Catalogue routines of the frame that consult the session or an object.
void addSessionRoutines(QMap<QString, Entry>& t) {
    add(t, "GetBaseCurrency", "GetBaseCurrency()", "the book's constant BaseCurrency", 0, 0,
        [](Args&) { return Catalogue::GetBaseCurrency(); });
    add(t, "BaseIsEuro", "BaseIsEuro()", "whether the base currency is EUR", 0, 0,
        [](Args&) { return Value(Catalogue::BaseIsEuro()); });
    add(t, "RateToBase", "RateToBase(Rate)", "base currency per foreign unit (1 / Rate under EUR)",
        1, 1, [](Args& a) { return Value(Catalogue::RateToBase(a.Number(0))); });
    add(t, "RightsFor", "RightsFor(Key)",
        "the five rights of the user for a key: Read, Delete, Edit, Create, Fifth (-1 true)", 1, 1,
        [](Args& a) { return rightsValue(Catalogue::RightsFor(a.Text(0))); });
    add(t, "DebtsQueryName", "DebtsQueryName(FOIDR, Sign)",
        "the debts query for a reference and a side", 2, 2,
        [](Args& a) { return Value(Catalogue::DebtsQueryName(a.Text(0), a.Whole(1))); });
    add(t, "AddresseeDialogTitle", "AddresseeDialogTitle(Code)", "the title of the object picker",
        1, 1, [](Args& a) { return Value(Catalogue::AddresseeDialogTitle(a.Text(0))); });
    add(t, "SelectAddressee", "SelectAddressee(Code, Title, Field, Filter)",
        "the object picker's answer \"OIDR_text\" (queued with the answer op), \"\" for none", 4, 4,
        [](Args& a) {
            const QString code = a.Text(0);
            const QString title = a.Text(1);
            const QString field = a.Text(2);
            return Value(Catalogue::SelectAddressee(code, title, field, a.Text(3)));
        });
    add(t, "AddresseeTail", "AddresseeTail(Answer)", "a picker's answer cut to a plain reference",
        1, 1, [](Args& a) { return Value(Catalogue::AddresseeTail(a.Text(0))); });
    add(t, "FormNameForKind", "FormNameForKind(Code)", "the editor of a kind of operation", 1, 1,
        [](Args& a) { return Value(Catalogue::FormNameForKind(a.Text(0))); });
    add(t, "SumInWords", "SumInWords(Sum, CurrencyCode)",
        "the sum in words as the currency object words it; \"\" on any failure", 2, 2,
        [](Args& a) { return Value(Catalogue::SumInWords(a.Number(0), a.Text(1))); });
    add(t, "AccountList", "AccountList([Caller])",
        "account number to name, from the operation object", 0, 1,
        [](Args& a) { return Value(Catalogue::AccountList(a.Object(0))); });
    add(t, "AccountName", "AccountName(Caller, Account)", "account, a blank and its name", 2, 2,
        [](Args& a) {
            const OrvoObjectUIOPtr caller = a.Object(0);
            return Value(Catalogue::AccountName(caller, a.Text(1)));
        });
    add(t, "MyMainAccount", "MyMainAccount([Caller])", "the reference of the firm's main account",
        0, 1, [](Args& a) { return Value(Catalogue::MyMainAccount(a.Object(0))); });
    add(t, "CurrencyListFor", "CurrencyListFor(Caller, Date, UseCurrencyRate)",
        "currency code to rate on the date", 3, 3, [](Args& a) {
            const OrvoObjectUIOPtr caller = a.Object(0);
            const QDate date = a.Date(1);
            return Value(Catalogue::CurrencyListFor(caller, date, a.Flag(2)));
        });
    add(t, "FindProperty", "FindProperty(Object, Code)",
        "the first addressee of the current entry whose reference begins with Code", 2, 2,
        [](Args& a) {
            const OrvoObjectUIOPtr uio = a.Object(0);
            return Value(Catalogue::FindProperty(uio, a.Text(1)));
        });
    add(t, "BuildPropertyText", "BuildPropertyText(Object, Sign)",
        "the addressee texts of one side of the current entry", 2, 2, [](Args& a) {
            const OrvoObjectUIOPtr uio = a.Object(0);
            return Value(Catalogue::BuildPropertyText(uio, static_cast<qint16>(a.Whole(1))));
        });
    add(t, "EntryIdList", "EntryIdList(Object)", "the stored entries' ID numbers joined by \",\"",
        1, 1, [](Args& a) { return Value(Catalogue::EntryIdList(a.Object(0))); });
    add(t, "TryFilter", "TryFilter(Recordset, FilterText)",
        "filters the recordset; no matching row clears the filter and gives false", 2, 2,
        [](Args& a) {
            const RecordsetPtr rs = a.Rows(0);
            return Value(Catalogue::TryFilter(rs, a.Text(1)));
        });
    add(t, "CloneRecordset", "CloneRecordset(Recordset)", "an unconnected copy of the recordset", 1,
        1, [](Args& a) {
            const RecordsetPtr rs = Catalogue::CloneRecordset(a.Rows(0));
            return rs ? Value(rs) : Value();
        });
}

const QMap<QString, Entry>& table() {
    static const QMap<QString, Entry> t = [] {
        QMap<QString, Entry> m;
        addFormatting(m);
        addDates(m);
        addReaders(m);
        addSessionRoutines(m);
        return m;
    }();
    return t;
}

} // namespace

ValueResult ScriptCatalogue::Call(const QString& name, const ValueArray& parameters) {
    const auto it = table().find(name);
    if (it == table().end())
        return ValueResult::Failure(codes::Refused,
                                    QStringLiteral("Nežinoma bendroji funkcija „%1“.").arg(name));
    const Entry& e = it.value();
    if (parameters.size() < e.MinArgs || parameters.size() > e.MaxArgs) {
        const QString wanted = e.MinArgs == e.MaxArgs
                                   ? QString::number(e.MinArgs)
                                   : QStringLiteral("%1–%2").arg(e.MinArgs).arg(e.MaxArgs);
        return ValueResult::Failure(codes::Refused,
                                    QStringLiteral("%1: reikia %2 parametrų, pateikta %3.")
                                        .arg(e.Signature, wanted)
                                        .arg(parameters.size()));
    }
    Args args(name, parameters);
    const Value v = e.Run(args);
    if (!args.Error().isEmpty())
        return ValueResult::Failure(codes::Refused, args.Error());
    return ValueResult::Of(v);
}

bool ScriptCatalogue::Has(const QString& name) {
    return table().contains(name);
}

QList<CatalogueRoutine> ScriptCatalogue::Routines() {
    QList<CatalogueRoutine> out;
    for (auto it = table().begin(); it != table().end(); ++it)
        out.append({it.key(), it.value().Signature, it.value().Doc});
    return out;
}

} // namespace orvo::host
