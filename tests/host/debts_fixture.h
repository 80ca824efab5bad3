// The fixture of the debt tests: a session on a new book on each backend (an empty
// chart, so that every account is accepted) and short ways to book invoices, payments and
// other entries through DO0201500_SaveOrvoObject, as the operation object stores them,
// and to read the debt lists and totals back through the business object's methods.
#pragma once

#include "accounts_fixture.h"

#include <QDate>
#include <QVector>

namespace orvo::host::testing {

// Customers, suppliers and a natural person of the tests' book.
inline const QString kCustomer = QStringLiteral("O000010011");
inline const QString kOtherCustomer = QStringLiteral("O000010012");
inline const QString kSupplier = QStringLiteral("O000010021");
inline const QString kPerson = QStringLiteral("O000140231");

class DebtsTest : public AccountsTest {
protected:
    // An addressee or reference row of an entry.
    struct Addressee {
        int sign;
        QString foidr;
        QString text;
    };
    // A foreign-currency side of an entry.
    struct CurrencySide {
        QString code;
        double sumCurr = 0;
        double rate = 0;
    };
    struct Entry {
        QString debit;
        QString credit;
        double sum = 0;
        QVector<Addressee> addressees;
        CurrencySide debitCurrency;
        CurrencySide creditCurrency;
        QString info;
    };

    // Stores an operation dated `date` with the entries; the IDs of the entries, in order.
    QVector<qint64> Book(const QDate& date, const QString& number, const QVector<Entry>& entries,
                         const QString& comment = QString()) {
        const BOResult blank =
            Call(QStringLiteral("DO0201500_GetOrvoObject"), QStringLiteral("'O0201500'"));
        EXPECT_TRUE(blank.ok()) << blank.Text.toStdString();
        const RecordsetPtr rs = blank.Data.toRecordset();
        if (!rs)
            return {};
        rs->MoveFirst();
        rs->SetField(QStringLiteral("DateD"), Value(date));
        rs->SetField(QStringLiteral("Number"), number);
        rs->SetField(QStringLiteral("Comment"), comment);
        const RecordsetPtr br = rs->Field(QStringLiteral("BR")).toRecordset();
        int serial = 0;
        for (const Entry& e : entries) {
            const QString guid = QStringLiteral("{%1-%2}").arg(number).arg(++serial);
            br->AddNew();
            br->SetField(QStringLiteral("GUID"), guid);
            br->SetField(QStringLiteral("DateD"), Value(date));
            br->SetField(QStringLiteral("SumA"), e.sum);
            br->SetField(QStringLiteral("AccountD"), e.debit);
            br->SetField(QStringLiteral("AccountC"), e.credit);
            br->SetField(QStringLiteral("Info"), e.info);
            const RecordsetPtr cur = br->Field(QStringLiteral("BRCurrency")).toRecordset();
            for (const auto& side :
                 {std::make_pair(1, e.debitCurrency), std::make_pair(-1, e.creditCurrency)}) {
                if (side.second.code.isEmpty())
                    continue;
                cur->AddNew();
                cur->SetField(QStringLiteral("BRGUID"), guid);
                cur->SetField(QStringLiteral("Sign"), Value(qint16(side.first)));
                cur->SetField(QStringLiteral("RateCurr"), side.second.rate);
                cur->SetField(QStringLiteral("SumCurr"), side.second.sumCurr);
                cur->SetField(QStringLiteral("FCurrencyCode"), side.second.code);
                cur->Update();
            }
            const RecordsetPtr props = br->Field(QStringLiteral("BRProperties")).toRecordset();
            for (const Addressee& a : e.addressees) {
                props->AddNew();
                props->SetField(QStringLiteral("BRGUID"), guid);
                props->SetField(QStringLiteral("Sign"), Value(qint16(a.sign)));
                props->SetField(QStringLiteral("FOIDR"), a.foidr);
                props->SetField(QStringLiteral("ShowString"), a.text.isEmpty() ? a.foidr : a.text);
                props->Update();
            }
            br->Update();
        }
        rs->Update();
        const BOResult saved =
            Call(QStringLiteral("DO0201500_SaveOrvoObject"), QStringLiteral("''"), Value(rs));
        EXPECT_TRUE(saved.ok()) << saved.Text.toStdString();
        const RecordsetPtr out = saved.Data.toRecordset();
        if (!saved.ok() || !out)
            return {};
        out->MoveFirst();
        const QueryResult q =
            session_->Db().Query(QStringLiteral("SELECT ID FROM BR WHERE BROperID = ? ORDER BY ID"),
                                 {out->Field(QStringLiteral("ID"))});
        QVector<qint64> ids;
        for (int i = 0; i < q.RowCount(); ++i)
            ids << static_cast<qint64>(q.At(i, 0).toDouble());
        return ids;
    }

    static QString Ref(qint64 entryId) { return QStringLiteral("O0201500%1").arg(entryId); }

    // A sale to a customer on credit: debit 2410, credit 5000; the entry's ID.
    qint64 Invoice(const QString& customer, double sum, const QDate& date, const QString& number) {
        const QVector<qint64> ids =
            Book(date, number,
                 {{QStringLiteral("2410"),
                   QStringLiteral("5000"),
                   sum,
                   {{1, customer, QStringLiteral("Klientas ") + customer.right(2)}},
                   {},
                   {},
                   QStringLiteral("Sąskaita ") + number}});
        return ids.isEmpty() ? 0 : ids.first();
    }

    // A bank receipt from the customer for the invoice: debit 2710, credit 2410.
    qint64 Payment(const QString& customer, qint64 invoice, double sum, const QDate& date,
                   const QString& number = QStringLiteral("MP")) {
        const QVector<qint64> ids =
            Book(date, number,
                 {{QStringLiteral("2710"),
                   QStringLiteral("2410"),
                   sum,
                   {{-1, customer, QString()}, {-1, Ref(invoice), QString()}},
                   {},
                   {},
                   QString()}});
        return ids.isEmpty() ? 0 : ids.first();
    }

    // A debt list method with its parameter text.
    RecordsetPtr Debts(const QString& method, const QString& account, const QDate& date,
                       const QString& addressee, int sign, bool branches = false) {
        QString text = QStringLiteral("'0','%1','%2','%3',%4")
                           .arg(account, date.toString(QStringLiteral("yyyy.MM.dd")), addressee)
                           .arg(sign);
        if (branches)
            text += QStringLiteral(",1");
        const BOResult r = Call(method, text);
        EXPECT_TRUE(r.ok()) << method.toStdString() << ": " << r.Text.toStdString();
        return r.Data.toRecordset();
    }

    static double Num(const RecordsetPtr& rs, const char* field) {
        return rs->Field(QString::fromLatin1(field)).toDouble();
    }
    static QString Str(const RecordsetPtr& rs, const char* field) {
        return rs->Field(QString::fromLatin1(field)).toString();
    }
};

} // namespace orvo::host::testing
