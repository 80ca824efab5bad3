#include "host/catalogues/catalogue_editor_hooks.h"

#include "core/recordset.h"
#include "host/catalogues/catalogue_editor_migration.h"
#include "host/catalogues/catalogue_editor_rules.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/user_kind.h"
#include "host/storage/database.h"

#include <QHash>

namespace orvo::host {

namespace {

Value valueOf(const Recordset& rs, int row, const QString& name) {
    const int f = rs.FieldIndex(name);
    return f < 0 ? Value() : rs.ValueAt(row, f);
}

QString textOf(const Recordset& rs, int row, const QString& name) {
    const Value v = valueOf(rs, row, name);
    return v.isNull() ? QString() : v.toString();
}

bool flagOf(const Recordset& rs, int row, const QString& name) {
    const Value v = valueOf(rs, row, name);
    return !v.isNull() && v.toBool();
}

// A code the record must not share with another record of its table.
struct UniqueCode {
    QString Column;
    // The refusal, with %1 the code and %2 the other record's text.
    QString Text;
    QString OtherText;
};

const QString kFullName = QStringLiteral("COALESCE(Name, '') || ' ' || COALESCE(LastName, '')");

bool uniqueCodeOf(const QString& code, UniqueCode* out) {
    static const QHash<QString, UniqueCode> codes = {
        {kinds::Firm,
         {QStringLiteral("Code"), QStringLiteral("Įmonė kodu %1 jau yra: %2."),
          QStringLiteral("Name")}},
        {kinds::Person,
         {QStringLiteral("PersCode"), QStringLiteral("Asmuo asmens kodu %1 jau yra: %2."),
          kFullName}},
        {kinds::Employee,
         {QStringLiteral("UsrPersCode"), QStringLiteral("Darbuotojas asmens kodu %1 jau yra: %2."),
          kFullName}},
        {kinds::Bank,
         {QStringLiteral("Code"), QStringLiteral("Bankas kodu %1 jau yra: %2."),
          QStringLiteral("Name")}},
        {kinds::BankAccount,
         {QStringLiteral("AccountNumber"), QStringLiteral("Banko sąskaita %1 jau yra: %2."),
          QStringLiteral("OwnerOIDR")}},
        {kinds::Currency,
         {QStringLiteral("Code"), QStringLiteral("Valiuta kodu %1 jau yra: %2."),
          QStringLiteral("COALESCE(Name, '')")}},
        {kinds::User,
         {QStringLiteral("Code"), QStringLiteral("Naudotojas prisijungimo vardu %1 jau yra: %2."),
          QStringLiteral("COALESCE(Name, '')")}},
    };
    const auto it = codes.constFind(code);
    if (it == codes.constEnd())
        return false;
    *out = *it;
    return true;
}

ResultRecord refused(const QString& text) {
    return ResultRecord::Failure(codes::Refused, text);
}

ResultRecord failed(const ExecResult& r) {
    return ResultRecord::Failure(r.Code, r.Text);
}

// Codes are kept as the editors show them: an account number without blanks, a
// currency code in capitals.
void stampCodes(const QString& code, Recordset& rs, int row) {
    if (code == kinds::BankAccount) {
        const int f = rs.FieldIndex(QStringLiteral("AccountNumber"));
        const QString number = NormalizedAccountNumber(rs.ValueAt(row, f).toString());
        if (number != rs.ValueAt(row, f).toString())
            rs.SetValueAt(row, f, Value(number));
    } else if (code == kinds::Currency) {
        const int f = rs.FieldIndex(QStringLiteral("Code"));
        const QString upper = rs.ValueAt(row, f).toString().trimmed().toUpper();
        if (upper != rs.ValueAt(row, f).toString())
            rs.SetValueAt(row, f, Value(upper));
    }
}

ResultRecord beforeWrite(const QString& code, const QString& table, Database& db, Recordset& rs,
                         int row, qint64 id) {
    const QString refusal =
        CatalogueRecordRefusal(code, [&](const QString& name) { return textOf(rs, row, name); });
    if (!refusal.isEmpty())
        return refused(refusal);
    stampCodes(code, rs, row);

    UniqueCode unique;
    if (uniqueCodeOf(code, &unique)) {
        const QString value = textOf(rs, row, unique.Column).trimmed();
        if (!value.isEmpty()) {
            const QueryResult q =
                db.Query(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ? AND ID <> ? ORDER BY ID")
                             .arg(unique.OtherText, table, unique.Column),
                         {Value(value), Value(double(id))});
            if (!q.ok())
                return ResultRecord::Failure(q.Code, q.Text);
            if (q.RowCount() > 0)
                return refused(unique.Text.arg(value, q.At(0, 0).toString().trimmed()));
        }
    }

    // One own firm and one main account of an owner: the record marked last keeps it.
    if (code == kinds::Firm && flagOf(rs, row, QStringLiteral("MyFirmFlag"))) {
        const ExecResult r = db.Execute(
            QStringLiteral("UPDATE Firms SET MyFirmFlag = 0 WHERE MyFirmFlag <> 0 AND ID <> ?"),
            {Value(double(id))});
        if (!r.ok())
            return failed(r);
    }
    if (code == kinds::BankAccount && flagOf(rs, row, QStringLiteral("MainAccountFlag"))) {
        const ExecResult r =
            db.Execute(QStringLiteral("UPDATE BankAccounts SET MainAccountFlag = 0 WHERE "
                                      "MainAccountFlag <> 0 AND OwnerOIDR = ? AND ID <> ?"),
                       {Value(textOf(rs, row, QStringLiteral("OwnerOIDR"))), Value(double(id))});
        if (!r.ok())
            return failed(r);
    }
    return ResultRecord::Success();
}

// The words of a refused deletion for each kind an entry may name as its addressee.
struct DeleteWords {
    QString Whose; // "Įmonės"
    QString Named; // "ji nurodyta"
    QString Owns;  // "jai priklauso"
};

bool deleteWordsOf(const QString& code, DeleteWords* out) {
    static const QHash<QString, DeleteWords> words = {
        {kinds::Firm,
         {QStringLiteral("Įmonės"), QStringLiteral("ji nurodyta"),
          QStringLiteral("jai priklauso")}},
        {kinds::Person,
         {QStringLiteral("Fizinio asmens"), QStringLiteral("jis nurodytas"),
          QStringLiteral("jam priklauso")}},
        {kinds::Employee,
         {QStringLiteral("Darbuotojo"), QStringLiteral("jis nurodytas"),
          QStringLiteral("jam priklauso")}},
        {kinds::Bank, {QStringLiteral("Banko"), QStringLiteral("jis nurodytas"), QString()}},
        {kinds::BankAccount,
         {QStringLiteral("Banko sąskaitos"), QStringLiteral("ji nurodyta"), QString()}},
    };
    const auto it = words.constFind(code);
    if (it == words.constEnd())
        return false;
    *out = *it;
    return true;
}

ResultRecord afterDelete(const QString& code, Database& db, qint64 id) {
    DeleteWords words;
    if (!deleteWordsOf(code, &words))
        return ResultRecord::Success();
    const QString oidr = code + QString::number(id);
    const QueryResult entries = db.Query(
        QStringLiteral("SELECT COUNT(*) FROM BRProperties WHERE FOIDR = ?"), {Value(oidr)});
    if (!entries.ok())
        return ResultRecord::Failure(entries.Code, entries.Text);
    const qint64 named = static_cast<qint64>(entries.Scalar().toDouble());
    if (named > 0)
        return refused(QStringLiteral("%1 panaikinti negalima: %2 finansinių operacijų įrašuose "
                                      "(%3).")
                           .arg(words.Whose, words.Named)
                           .arg(named));
    if (!words.Owns.isEmpty()) {
        const QueryResult accounts = db.Query(
            QStringLiteral("SELECT COUNT(*) FROM BankAccounts WHERE OwnerOIDR = ?"), {Value(oidr)});
        if (!accounts.ok())
            return ResultRecord::Failure(accounts.Code, accounts.Text);
        const qint64 owned = static_cast<qint64>(accounts.Scalar().toDouble());
        if (owned > 0)
            return refused(QStringLiteral("%1 panaikinti negalima: %2 banko sąskaitos (%3). "
                                          "Pirma panaikinkite jas.")
                               .arg(words.Whose, words.Owns)
                               .arg(owned));
    }
    return ResultRecord::Success();
}

} // namespace

void ApplyCatalogueEditorRules(ObjectKind& kind) {
    bool hasLock = false;
    for (const ColumnDef& c : kind.Root.Table.Columns)
        hasLock = hasLock || c.Name == CatalogueLockColumn();
    if (!hasLock)
        kind.Root.Table.Columns.append(Column(CatalogueLockColumn(), ColumnType::Text));
    kind.LockColumn = CatalogueLockColumn();
    kind.Hooks.BeforeWrite = [code = kind.Code,
                              table = kind.Root.Table.Name](Database& db, Recordset& rs, int row,
                                                            qint64 id, const ObjectSaveActor&) {
        return beforeWrite(code, table, db, rs, row, id);
    };
    kind.Hooks.AfterDelete = [code = kind.Code](Database& db, qint64 id, const ObjectSaveActor&) {
        return afterDelete(code, db, id);
    };
}

} // namespace orvo::host
