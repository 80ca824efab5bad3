#include "host/demo/demo_debts.h"

#include "core/recordset.h"
#include "core/rounding.h"
#include "host/demo/demo_data.h"
#include "host/objects/object_store.h"
#include "host/objects/operation_kind.h"
#include "host/storage/database.h"

#include <QUuid>

namespace orvo::host {

namespace {

const QString kFirmKind = QStringLiteral("O0000100");
const QString kEntryKind = QStringLiteral("O0201500");

// Firms by their place in the demo list.
enum Firm {
    Zalgiris = 1,
    SiauresVejas = 3,
    AzuoluBaldai = 4,
    Spaustuve = 5,
    Kepykla = 6,
    IrankiuCentras = 7,
    UkininkuSekla = 8,
    PajurioLogistika = 9,
};

// A debt: a sale (debit 2410) or a purchase (credit 4430), and what was paid of it.
struct DemoDebt {
    Firm firm;
    bool sale;
    int daysAgo;
    const char* number;
    const char* comment;
    // Three letters, or empty for euros.
    const char* currency;
    // In the debt's currency.
    double sum;
    // A payment referring to the debt, in the same currency; 0 for none.
    double paid;
    int paidDaysAgo;
};

const QVector<DemoDebt>& debts() {
    static const QVector<DemoDebt> list = {
        {Zalgiris, true, 62, "SF-1041", "Prekės pagal sutartį 12/2", "", 1210.00, 500.00, 31},
        {Zalgiris, true, 48, "SF-1052", "Prekės eksportui", "USD", 2500.00, 1000.00, 12},
        {Kepykla, true, 21, "SF-1063", "Kepimo įranga", "", 350.90, 0, 0},
        {UkininkuSekla, true, 57, "SF-1046", "Sėklų pakuotės", "", 968.00, 0, 0},
        {IrankiuCentras, true, 45, "SF-1049", "Įrankių komplektai", "", 2420.00, 0, 0},
        {IrankiuCentras, true, 50, "SF-1048", "Staklių detalės", "USD", 1000.00, 0, 0},
        {SiauresVejas, false, 40, "ŠV-2207", "Prekės perparduoti", "", 1815.00, 815.00, 18},
        {Spaustuve, false, 27, "ČS-0931", "Katalogų spauda", "", 605.00, 0, 0},
        {AzuoluBaldai, false, 70, "AB-5512", "Biuro baldai", "GBP", 3000.00, 0, 0},
        {PajurioLogistika, false, 25, "PL-774", "Krovinių gabenimas", "PLN", 4200.00, 2000.00, 9},
        {IrankiuCentras, false, 35, "ĮC-118", "Įrankių nuoma", "", 1500.00, 0, 0},
        {IrankiuCentras, false, 30, "ĮC-121", "Matavimo prietaisai", "USD", 800.00, 0, 0},
    };
    return list;
}

ResultRecord failed(const QString& what, const QString& why) {
    return ResultRecord::Failure(
        1, QStringLiteral("Nepavyko įrašyti demonstracinės skolos „%1“: %2").arg(what, why));
}

struct Rate {
    // Euros per unit, and units per euro as quoted.
    double perUnit = 0;
    double quoted = 0;
};

ResultRecord rateOf(Database& db, const QString& code, const QDate& day, Rate* rate) {
    const QueryResult q = db.Query(
        QStringLiteral("SELECT r.Rate, r.CurrencyRate FROM CurrencyRates r JOIN Currencies c ON "
                       "c.ID = r.CurrencyID WHERE c.Code = ? AND r.DateD = ?"),
        {Value(code), Value(day)});
    if (!q.ok())
        return failed(code, q.Text);
    if (q.RowCount() == 0)
        return failed(code, QStringLiteral("nėra kurso"));
    rate->perUnit = q.At(0, 0).toDouble();
    rate->quoted = q.At(0, 1).toDouble();
    return {};
}

// One entry of a demo operation.
struct Entry {
    QString debit;
    QString credit;
    // In the currency when one is given, else in euros.
    double sum = 0;
    QString currency;
    Rate rate;
    // Which sides carry the currency: 1 debit, -1 credit, 0 both.
    int currencySide = 0;
    // Sign, reference, text.
    QVector<std::tuple<int, QString, QString>> addressees;
};

void addEntry(const RecordsetPtr& br, const QDate& day, const Entry& e) {
    const QString guid = QUuid::createUuid().toString().toUpper();
    const bool foreign = !e.currency.isEmpty();
    br->AddNew();
    br->SetField(QStringLiteral("GUID"), guid);
    br->SetField(QStringLiteral("DateD"), Value(day));
    br->SetField(QStringLiteral("SumA"), foreign ? RoundBaseSum(e.sum * e.rate.perUnit) : e.sum);
    br->SetField(QStringLiteral("AccountD"), e.debit);
    br->SetField(QStringLiteral("AccountC"), e.credit);
    if (foreign) {
        const RecordsetPtr cur = br->Field(QStringLiteral("BRCurrency")).toRecordset();
        for (const int side : {1, -1}) {
            if (e.currencySide != 0 && e.currencySide != side)
                continue;
            br->SetField(side == 1 ? QStringLiteral("CurrencyRateD")
                                   : QStringLiteral("CurrencyRateC"),
                         Value(e.rate.quoted));
            cur->AddNew();
            cur->SetField(QStringLiteral("BRGUID"), guid);
            cur->SetField(QStringLiteral("Sign"), Value(qint16(side)));
            cur->SetField(QStringLiteral("RateCurr"), Value(e.rate.perUnit));
            cur->SetField(QStringLiteral("SumCurr"), Value(e.sum));
            cur->SetField(QStringLiteral("FCurrencyCode"), e.currency);
            cur->Update();
        }
    }
    const RecordsetPtr props = br->Field(QStringLiteral("BRProperties")).toRecordset();
    for (const auto& [sign, foidr, text] : e.addressees) {
        props->AddNew();
        props->SetField(QStringLiteral("BRGUID"), guid);
        props->SetField(QStringLiteral("Sign"), Value(qint16(sign)));
        props->SetField(QStringLiteral("FOIDR"), foidr);
        props->SetField(QStringLiteral("ShowString"), text);
        props->Update();
    }
    br->Update();
}

// Stores one operation of one entry; the entry's record number in `entryId`.
ResultRecord book(Database& db, const QDate& day, const QString& number, const QString& comment,
                  const Entry& entry, qint64* entryId) {
    ObjectStore store(db);
    const ObjectKind kind = OperationKind(BookPostingRules());
    const BOResult blank = store.ReadBlank(kind);
    const RecordsetPtr rs = blank.ok() ? blank.Data.toRecordset() : nullptr;
    if (!rs)
        return failed(number, blank.Text);
    rs->MoveFirst();
    rs->SetField(QStringLiteral("DateD"), Value(day));
    rs->SetField(QStringLiteral("Number"), number);
    rs->SetField(QStringLiteral("Comment"), comment);
    addEntry(rs->Field(QStringLiteral("BR")).toRecordset(), day, entry);
    rs->Update();
    const BOResult saved = store.Save(kind, 0, rs);
    if (!saved.ok())
        return failed(number, saved.Text);
    const QueryResult q =
        db.Query(QStringLiteral("SELECT b.ID FROM BR b JOIN BROpers o ON o.ID = b.BROperID WHERE "
                                "o.Number = ? ORDER BY b.ID"),
                 {Value(number)});
    if (!q.ok() || q.RowCount() == 0)
        return failed(number, q.ok() ? QStringLiteral("negautas numeris") : q.Text);
    *entryId = static_cast<qint64>(q.At(q.RowCount() - 1, 0).toDouble());
    return {};
}

} // namespace

ResultRecord CreateDemoDebts(Database& db, const QDate& today) {
    for (const DemoDebt& d : debts()) {
        const QString name = QString::fromUtf8(demo::Firms().at(d.firm).Name);
        const QueryResult q =
            db.Query(QStringLiteral("SELECT ID FROM Firms WHERE Name = ?"), {Value(name)});
        if (!q.ok() || q.RowCount() == 0)
            return failed(name, q.ok() ? QStringLiteral("nėra įmonės") : q.Text);
        const QString firm = kFirmKind + QString::number(qint64(q.Scalar().toDouble()));
        const QString number = QString::fromUtf8(d.number);
        const QString currency = QString::fromLatin1(d.currency);
        const QDate day = today.addDays(-d.daysAgo);

        Entry invoice;
        invoice.debit = d.sale ? QStringLiteral("2410") : QStringLiteral("2040");
        invoice.credit = d.sale ? QStringLiteral("5000") : QStringLiteral("4430");
        invoice.sum = d.sum;
        invoice.currency = currency;
        invoice.currencySide = d.sale ? 1 : -1;
        if (!currency.isEmpty())
            if (ResultRecord r = rateOf(db, currency, day, &invoice.rate); !r.ok())
                return r;
        invoice.addressees = {{d.sale ? 1 : -1, firm, name}};
        qint64 invoiceId = 0;
        ResultRecord r = book(db, day, number, QString::fromUtf8(d.comment), invoice, &invoiceId);
        if (!r.ok())
            return r;
        if (d.paid <= 0)
            continue;

        // The payment through the bank account of its currency, referring to the debt.
        const QDate paidDay = today.addDays(-d.paidDaysAgo);
        const QString bank = currency.isEmpty() ? QStringLiteral("2711") : QStringLiteral("2712");
        Entry payment;
        payment.debit = d.sale ? bank : QStringLiteral("4430");
        payment.credit = d.sale ? QStringLiteral("2410") : bank;
        payment.sum = d.paid;
        payment.currency = currency;
        payment.currencySide = 0;
        if (!currency.isEmpty())
            if (r = rateOf(db, currency, paidDay, &payment.rate); !r.ok())
                return r;
        const int side = d.sale ? -1 : 1;
        payment.addressees = {{side, firm, name},
                              {side, kEntryKind + QString::number(invoiceId),
                               day.toString(QStringLiteral("yyyy.MM.dd ")) + number}};
        qint64 paymentId = 0;
        r = book(db, paidDay, number + QStringLiteral("-MP"),
                 (d.sale ? QStringLiteral("Pirkėjo apmokėjimas ")
                         : QStringLiteral("Apmokėjimas "
                                          "tiekėjui ")) +
                     number,
                 payment, &paymentId);
        if (!r.ok())
            return r;
    }
    return ResultRecord::Success();
}

} // namespace orvo::host
