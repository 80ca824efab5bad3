#include "host/demo/demo_book.h"

#include "frame/security_header.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/demo/demo_chart.h"
#include "host/demo/demo_data.h"
#include "host/demo/demo_debts.h"
#include "host/demo/demo_groups.h"
#include "host/demo/demo_rate_series.h"
#include "host/demo/demo_templates.h"
#include "host/storage/database.h"
#include "host/storage/transaction_guard.h"

#include <QStringList>

namespace orvo::host {

namespace {

using namespace demo;

const QString kBaseCurrency = QStringLiteral("EUR");
const QString kCountry = QStringLiteral("Lietuva");

// The tables whose rows mean that someone already works in the book.
const QStringList& OccupiedTables() {
    static const QStringList tables = {
        QStringLiteral("Firms"), QStringLiteral("Persons"),       QStringLiteral("Employees"),
        QStringLiteral("Banks"), QStringLiteral("BankAccounts"),  QStringLiteral("Currencies"),
        QStringLiteral("Users"), QStringLiteral("CurrencyRates"), QStringLiteral("Rights"),
    };
    return tables;
}

// An empty text of the data tables is stored as Null, as an editor leaves an empty field.
Value text(const char* utf8) {
    const QString s = QString::fromUtf8(utf8);
    return s.isEmpty() ? Value() : Value(s);
}

Value id(qint64 recordId) {
    return Value(static_cast<qint32>(recordId));
}

ResultRecord failed(const QString& what, qint32 code, const QString& reason) {
    return ResultRecord::Failure(
        code != 0 ? code : 1,
        QStringLiteral("Nepavyko įrašyti demonstracinių duomenų (%1): %2").arg(what, reason));
}

// Runs an INSERT ... RETURNING ID and gives the new record's number in `newId`.
ResultRecord insert(Database& db, const QString& what, const QString& sql, const ValueArray& params,
                    qint64& newId) {
    const QueryResult r = db.Query(sql + QStringLiteral(" RETURNING ID"), params);
    if (!r.ok())
        return failed(what, r.Code, r.Text);
    bool ok = false;
    newId = static_cast<qint64>(r.Scalar().toDouble(&ok));
    if (!ok || newId <= 0)
        return failed(what, 1, QStringLiteral("negautas naujo įrašo numeris"));
    return {};
}

ResultRecord execute(Database& db, const QString& what, const QString& sql,
                     const ValueArray& params) {
    const ExecResult r = db.Execute(sql, params);
    return r.ok() ? ResultRecord{} : failed(what, r.Code, r.Text);
}

ResultRecord refuseUnlessEmpty(Database& db) {
    for (const QString& table : OccupiedTables()) {
        // A table name cannot be a parameter; these names are the program's own.
        const QueryResult r = db.Query(QStringLiteral("SELECT 1 FROM %1 LIMIT 1").arg(table));
        if (!r.ok())
            return ResultRecord::Failure(r.Code, r.Text);
        if (r.RowCount() > 0)
            return ResultRecord::Failure(codes::Refused, DemoBookNotEmptyText());
    }
    return {};
}

// The demonstration data are in euros: a book whose base is another currency is refused,
// a book without the constant gets it.
ResultRecord ensureEuroBase(Database& db) {
    const QueryResult r = db.Query(QStringLiteral("SELECT Value FROM Constants WHERE Name = ?"),
                                   {Value(QStringLiteral("BaseCurrency"))});
    if (!r.ok())
        return ResultRecord::Failure(r.Code, r.Text);
    if (r.RowCount() == 0) {
        return execute(db, QStringLiteral("konstantos"),
                       QStringLiteral("INSERT INTO Constants (Name, Value) VALUES (?, ?)"),
                       {Value(QStringLiteral("BaseCurrency")), Value(kBaseCurrency)});
    }
    const QString base = r.Scalar().toString().trimmed();
    if (base != kBaseCurrency) {
        return ResultRecord::Failure(
            codes::Refused,
            QStringLiteral("Knygos bazinė valiuta yra %1, o demonstraciniai duomenys "
                           "paruošti eurui.")
                .arg(base));
    }
    return {};
}

ResultRecord writeCurrencies(Database& db, const QDate& today) {
    const QDate first = today.addYears(-2);
    for (const DemoCurrency& c : Currencies()) {
        const QString code = QString::fromLatin1(c.Code);
        qint64 currencyId = 0;
        ResultRecord r = insert(db, QStringLiteral("valiuta %1").arg(code),
                                QStringLiteral("INSERT INTO Currencies (Code, Name, State, "
                                               "TwoCurr, TwoSmall, BaseCurrency, FixedRate) "
                                               "VALUES (?, ?, ?, ?, ?, ?, ?)"),
                                {Value(code), text(c.Name), text(c.State), text(c.TwoCurr),
                                 text(c.TwoSmall), Value(code == kBaseCurrency), Value(0.0)},
                                currencyId);
        if (!r.ok())
            return r;
        if (code == kBaseCurrency)
            continue;

        // Quoted as foreign units per euro; Rate is the euro value of one unit.
        const QVector<double> quotes = DemoRateSeries(code, c.Low, c.High).Quotes(first, today);
        QVector<ValueArray> rows;
        rows.reserve(quotes.size());
        QDate day = first;
        for (const double quoted : quotes) {
            rows.append({id(currencyId), Value(day), Value(1.0 / quoted), Value(quoted)});
            day = day.addDays(1);
        }
        const ExecResult written = db.ExecuteMany(
            QStringLiteral("INSERT INTO CurrencyRates (CurrencyID, DateD, Rate, CurrencyRate) "
                           "VALUES (?, ?, ?, ?)"),
            rows);
        if (!written.ok())
            return failed(QStringLiteral("valiutos %1 kursai").arg(code), written.Code,
                          written.Text);
    }
    return {};
}

struct WrittenIds {
    QVector<qint64> Banks;
    QVector<qint64> Firms;
    QVector<qint64> Persons;
    QVector<qint64> Employees;
};

ResultRecord writeBanks(Database& db, WrittenIds& ids) {
    for (const DemoBank& b : Banks()) {
        qint64 bankId = 0;
        ResultRecord r = insert(db, QStringLiteral("bankas"),
                                QStringLiteral("INSERT INTO Banks (Name, Code, SWIFT, Street, "
                                               "City, Country, PostalCode) "
                                               "VALUES (?, ?, ?, ?, ?, ?, ?)"),
                                {text(b.Name), text(b.Code), text(b.SWIFT), text(b.Street),
                                 text(b.City), Value(kCountry), text(b.PostalCode)},
                                bankId);
        if (!r.ok())
            return r;
        ids.Banks.append(bankId);
    }
    return {};
}

ResultRecord writeFirms(Database& db, WrittenIds& ids) {
    const QVector<DemoFirm>& firms = Firms();
    for (int i = 0; i < firms.size(); ++i) {
        const DemoFirm& f = firms[i];
        // A branch follows its head firm in the list, so the head's number is known.
        const Value parent = f.Parent >= 0 ? id(ids.Firms.at(f.Parent)) : Value();
        qint64 firmId = 0;
        ResultRecord r =
            insert(db, QStringLiteral("įmonė"),
                   QStringLiteral("INSERT INTO Firms (Name, Code, VATCode, Street, City, Country, "
                                  "PostalCode, Phone, EMail, ParentID, MyFirmFlag, Comment) "
                                  "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                   {text(f.Name), text(f.Code), text(f.VATCode), text(f.Street), text(f.City),
                    Value(kCountry), text(f.PostalCode), text(f.Phone), text(f.EMail), parent,
                    Value(i == 0), text(f.Comment)},
                   firmId);
        if (!r.ok())
            return r;
        ids.Firms.append(firmId);
    }
    return {};
}

ResultRecord writePeople(Database& db, WrittenIds& ids) {
    for (const DemoPerson& p : Persons()) {
        qint64 personId = 0;
        ResultRecord r =
            insert(db, QStringLiteral("fizinis asmuo"),
                   QStringLiteral("INSERT INTO Persons (Name, LastName, PersCode, Street, City, "
                                  "Country, PostalCode, Phone, EMail) "
                                  "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                   {text(p.Name), text(p.LastName), text(p.PersCode), text(p.Street), text(p.City),
                    Value(kCountry), text(p.PostalCode), text(p.Phone), text(p.EMail)},
                   personId);
        if (!r.ok())
            return r;
        ids.Persons.append(personId);
    }
    for (const DemoPerson& e : Employees()) {
        qint64 employeeId = 0;
        ResultRecord r = insert(
            db, QStringLiteral("darbuotojas"),
            QStringLiteral("INSERT INTO Employees (Name, LastName, UsrTitle, UsrPersCode, "
                           "Street, City, Country, PostalCode, Phone, EMail) "
                           "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
            {text(e.Name), text(e.LastName), text(e.Title), text(e.PersCode), text(e.Street),
             text(e.City), Value(kCountry), text(e.PostalCode), text(e.Phone), text(e.EMail)},
            employeeId);
        if (!r.ok())
            return r;
        ids.Employees.append(employeeId);
    }
    return {};
}

QString ownerReference(const DemoAccount& a, const WrittenIds& ids) {
    switch (a.Owner) {
    case DemoOwner::Firm:
        return kinds::Firm + QString::number(ids.Firms.at(a.OwnerIndex));
    case DemoOwner::Person:
        return kinds::Person + QString::number(ids.Persons.at(a.OwnerIndex));
    case DemoOwner::Employee:
        return kinds::Employee + QString::number(ids.Employees.at(a.OwnerIndex));
    }
    return {};
}

ResultRecord writeAccounts(Database& db, const WrittenIds& ids) {
    for (const DemoAccount& a : Accounts()) {
        const DemoBank& bank = Banks().at(a.BankIndex);
        const QString iban =
            LithuanianIban(QString::fromLatin1(bank.Code), QString::fromLatin1(a.AccountDigits));
        ResultRecord r =
            execute(db, QStringLiteral("banko sąskaita %1").arg(iban),
                    QStringLiteral("INSERT INTO BankAccounts (OwnerOIDR, AccountNumber, BankID, "
                                   "CurrencyCode, MainAccountFlag) VALUES (?, ?, ?, ?, ?)"),
                    {Value(ownerReference(a, ids)), Value(iban), id(ids.Banks.at(a.BankIndex)),
                     Value(QString::fromLatin1(a.CurrencyCode)), Value(a.Main)});
        if (!r.ok())
            return r;
    }
    return {};
}

ResultRecord writeRight(Database& db, qint64 userId, const QString& key, bool read, bool del,
                        bool edit, bool create) {
    return execute(db, QStringLiteral("teisė %1").arg(key),
                   QStringLiteral("INSERT INTO Rights (UserID, RightKey, ReadFlag, DeleteFlag, "
                                  "EditFlag, CreateFlag, FifthFlag) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                   {id(userId), Value(key), Value(read), Value(del), Value(edit), Value(create),
                    Value(false)});
}

// The administrator holds every right through IsAdmin. The accountant reads, edits and
// creates but deletes nothing, and may neither lock accounts nor change the chart of
// accounts (the two on/off rights); she works in the first six operation groups.
ResultRecord writeUsers(Database& db, const WrittenIds& ids) {
    const QString users = QStringLiteral("INSERT INTO Users (Code, Name, UserPref, IsAdmin, "
                                         "EmployeeID) VALUES (?, ?, ?, ?, ?)");
    qint64 adminId = 0;
    ResultRecord r =
        insert(db, QStringLiteral("naudotojas admin"), users,
               {Value(QStringLiteral("admin")), Value(QStringLiteral("Administratorius")),
                Value(QStringLiteral("A")), Value(true), Value()},
               adminId);
    if (!r.ok())
        return r;

    // The chief accountant is the second employee.
    qint64 accountantId = 0;
    r = insert(db, QStringLiteral("naudotojas buhalteris"), users,
               {Value(QStringLiteral("buhalteris")),
                Value(QStringLiteral("Buhalterė Rūta Petrauskienė")), Value(QStringLiteral("RP")),
                Value(false), id(ids.Employees.at(1))},
               accountantId);
    if (!r.ok())
        return r;

    for (const ComponentRight& right : SecurityHeader().GetComponentList()) {
        const bool granted = right.Kind != ComponentRight::OnOff;
        r = writeRight(db, accountantId, right.Key, granted, false, granted, granted);
        if (!r.ok())
            return r;
    }
    for (int group = 1; group <= 6; ++group) {
        r = writeRight(db, accountantId, QStringLiteral("CBROperRights%1").arg(group), true, false,
                       true, true);
        if (!r.ok())
            return r;
    }
    return {};
}

// A few ready comments, so that the comment list of an operation shows something real.
ResultRecord writeComments(Database& db) {
    for (const char* name : {"Prekių pardavimas pagal sąskaitą faktūrą", "Apmokėjimas už prekes",
                             "Banko paslaugų mokestis", "Patalpų nuoma"}) {
        const ExecResult r =
            db.Execute(QStringLiteral("INSERT INTO BRCommentTemplates (Name) VALUES (?)"),
                       {Value(QString::fromUtf8(name))});
        if (!r.ok())
            return ResultRecord::Failure(r.Code, r.Text);
    }
    return {};
}

} // namespace

QString DemoBookNotEmptyText() {
    return QStringLiteral("Knygoje jau yra duomenų. Demonstraciniai duomenys įrašomi tik į "
                          "naują, tuščią knygą.");
}

ResultRecord CreateDemoBook(Database& db, const QDate& today) {
    if (!today.isValid())
        return ResultRecord::Failure(codes::Refused,
                                     QStringLiteral("Nenurodyta demonstracinių duomenų data."));

    TransactionGuard tx(db);
    if (!tx.ok())
        return tx.result();
    ResultRecord r = refuseUnlessEmpty(db);
    if (!r.ok())
        return r;
    if (r = ensureEuroBase(db); !r.ok())
        return r;
    if (r = writeCurrencies(db, today); !r.ok())
        return r;
    WrittenIds ids;
    if (r = writeBanks(db, ids); !r.ok())
        return r;
    if (r = writeFirms(db, ids); !r.ok())
        return r;
    if (r = writePeople(db, ids); !r.ok())
        return r;
    if (r = writeAccounts(db, ids); !r.ok())
        return r;
    if (r = writeUsers(db, ids); !r.ok())
        return r;
    // The demo firm keeps its books on the demo chart of accounts.
    if (r = CreateDemoChart(db); !r.ok())
        return r;
    DemoTemplateIds templates;
    if (r = CreateDemoTemplates(db, &templates); !r.ok())
        return r;
    if (r = CreateDemoGroups(db, templates, today); !r.ok())
        return r;
    if (r = CreateDemoDebts(db, today); !r.ok())
        return r;
    if (r = writeComments(db); !r.ok())
        return r;
    return tx.Commit();
}

} // namespace orvo::host
