#include "host/objects/operation_kind.h"

#include "core/recordset.h"
#include "core/rounding.h"
#include "host/objects/auto_number_counters.h"
#include "host/objects/object_kind_registry.h"
#include "host/storage/database.h"
#include "host/storage/operations_schema.h"
#include "model/operation_record.h"

#include <QDateTime>
#include <QSet>
#include <memory>

namespace orvo::host {

namespace {

const QString kBR = QStringLiteral("BR");
const QString kBRCurrency = QStringLiteral("BRCurrency");
const QString kBRProperties = QStringLiteral("BRProperties");
const QString kRequiredAddr = QStringLiteral("RequiredAddr");

Value at(const Recordset& rs, int row, const char* field) {
    return rs.ValueAt(row, rs.FieldIndex(QString::fromLatin1(field)));
}

QString textAt(const Recordset& rs, int row, const char* field) {
    return at(rs, row, field).toString();
}

double numberAt(const Recordset& rs, int row, const char* field) {
    const Value v = at(rs, row, field);
    return v.isNull() ? 0.0 : v.toDouble();
}

RecordsetPtr nestedAt(const Recordset& rs, int row, const QString& field) {
    const int f = rs.FieldIndex(field);
    return f < 0 ? nullptr : rs.ValueAt(row, f).toRecordset();
}

template <typename F> void forLiveRows(const RecordsetPtr& rs, F f) {
    if (!rs)
        return;
    for (int i = 0; i < rs->RowCountAll(); ++i)
        if (rs->StatusAt(i) != RowStatus::Deleted)
            f(i);
}

// The refusal of one entry: the reason, a line break, then the accounts and the sum as
// the component's own entry check words it.
ResultRecord refusal(const QString& reason, const Recordset& br, int row) {
    return ResultRecord::Failure(777, reason + QLatin1Char('\n') + textAt(br, row, "AccountD") +
                                          QLatin1Char(' ') + textAt(br, row, "AccountC") +
                                          QLatin1Char(' ') +
                                          QString::number(numberAt(br, row, "SumA"), 'f', 2));
}

// The currency sides of an entry: a side with a sum needs a code and a rate, and its sum
// at the rate must give the entry's base sum.
QString currencyRefusal(const RecordsetPtr& currency, double sumA) {
    QString text;
    forLiveRows(currency, [&](int i) {
        if (!text.isEmpty())
            return;
        const double sumCurr = numberAt(*currency, i, "SumCurr");
        if (sumCurr <= 0)
            return;
        const double rate = numberAt(*currency, i, "RateCurr");
        if (textAt(*currency, i, "FCurrencyCode").trimmed().isEmpty())
            text = QStringLiteral("Nenurodytas valiutos tipas!");
        else if (rate == 0)
            text = QStringLiteral("Nenurodytas valiutos kursas!");
        else if (Round(sumCurr * rate + 0.00001, 2) != Round(sumA, 2))
            text = QStringLiteral("Suma bazine valiuta neatitinka sumai valiuta pagal kursą!");
    });
    return text;
}

QString sideLetter(int sign) {
    return sign == 1 ? QStringLiteral("D") : QStringLiteral("C");
}

// The demands of the entry's two accounts, as side letter + kind.
QSet<QString> demandsOf(Database& db, const OperationPostingRules& rules, const Recordset& br,
                        int row) {
    QSet<QString> keys;
    if (!rules.Demands)
        return keys;
    const QString debit = textAt(br, row, "AccountD").trimmed();
    const QString credit = textAt(br, row, "AccountC").trimmed();
    if (!debit.isEmpty())
        for (const AddresseeDemand& d : rules.Demands(db, debit, 1))
            keys.insert(sideLetter(1) + d.FOID);
    if (!credit.isEmpty())
        for (const AddresseeDemand& d : rules.Demands(db, credit, -1))
            keys.insert(sideLetter(-1) + d.FOID);
    return keys;
}

// Whether the addressees meet the demands: each row whose side and kind is demanded
// counts, so two of one kind count twice, as the component's own check counts them.
bool demandsMet(const QSet<QString>& demands, const RecordsetPtr& properties) {
    if (demands.isEmpty())
        return true;
    int live = 0;
    int count = 0;
    forLiveRows(properties, [&](int i) {
        ++live;
        const QString key = sideLetter(at(*properties, i, "Sign").toInt32()) +
                            textAt(*properties, i, "FOIDR").left(8);
        if (demands.contains(key))
            ++count;
    });
    return live >= demands.size() && count == demands.size();
}

ResultRecord checkEntries(Database& db, const OperationPostingRules& rules, Recordset& rs,
                          int row) {
    const RecordsetPtr br = nestedAt(rs, row, kBR);
    const QDate operationDate = at(rs, row, "DateD").toDate();
    ResultRecord result = ResultRecord::Success();
    forLiveRows(br, [&](int i) {
        if (!result.ok())
            return;
        const double sumA = numberAt(*br, i, "SumA");
        if (!(Round(sumA, 2) > 0)) {
            result = refusal(QStringLiteral("Klaidinga sumos reikšmė!"), *br, i);
            return;
        }
        const QString debit = textAt(*br, i, "AccountD").trimmed();
        const QString credit = textAt(*br, i, "AccountC").trimmed();
        if (rules.AccountKnown) {
            for (const QString& account : {debit, credit}) {
                // "0" is no account of the chart but the opening balances, which an
                // entry may be posted against.
                if (account == QLatin1String("0"))
                    continue;
                if (account.isEmpty() || !rules.AccountKnown(db, account)) {
                    result =
                        refusal(QStringLiteral("Klaidinga balansinės sąskaitos reikšmė!"), *br, i);
                    return;
                }
            }
        }
        const QString currency = currencyRefusal(nestedAt(*br, i, kBRCurrency), sumA);
        if (!currency.isEmpty()) {
            result = refusal(currency, *br, i);
            return;
        }
        if (!demandsMet(demandsOf(db, rules, *br, i), nestedAt(*br, i, kBRProperties))) {
            result = refusal(QStringLiteral("Nenurodyti būtini adresatai!"), *br, i);
            return;
        }
        if (rules.LockRefusal) {
            const Value entryDate = at(*br, i, "DateD");
            const QDate date = entryDate.isNull() ? operationDate : entryDate.toDate();
            for (const QString& account : {debit, credit}) {
                const QString locked = rules.LockRefusal(db, account, date);
                if (!locked.isEmpty()) {
                    result = refusal(locked, *br, i);
                    return;
                }
            }
        }
    });
    return result;
}

// What is filled in before writing: an entry without a date takes the operation's, an
// addressee text longer than its size is cut, and a record without a kind is a plain
// operation. Only rows about to be inserted are touched, so that SetValueAt's value is
// the one written.
void fillBeforeWrite(Recordset& rs, int row) {
    const int otype = rs.FieldIndex(QStringLiteral("OType"));
    if (otype >= 0 && rs.ValueAt(row, otype).toString().trimmed().isEmpty())
        rs.SetValueAt(row, otype, kinds::Operation);
    // An operation with no document behind it stands for itself: its own kind is what
    // chooses its editor when it is opened again, and a stored operation without it
    // would read as deleted.
    const int foidr = rs.FieldIndex(QStringLiteral("FOIDR"));
    if (foidr >= 0 && rs.ValueAt(row, foidr).toString().trimmed().isEmpty())
        rs.SetValueAt(row, foidr,
                      otype >= 0 ? rs.ValueAt(row, otype).toString().left(8) : kinds::Operation);
    const Value operationDate = at(rs, row, "DateD");
    const RecordsetPtr br = nestedAt(rs, row, kBR);
    forLiveRows(br, [&](int i) {
        const int dateField = br->FieldIndex(QStringLiteral("DateD"));
        if (br->StatusAt(i) == RowStatus::New && br->ValueAt(i, dateField).isNull())
            br->SetValueAt(i, dateField, operationDate);
        const RecordsetPtr props = nestedAt(*br, i, kBRProperties);
        forLiveRows(props, [&](int p) {
            const int f = props->FieldIndex(QStringLiteral("ShowString"));
            const QString text = props->ValueAt(p, f).toString();
            if (props->StatusAt(p) == RowStatus::New &&
                text.size() > OperationRecord::ShowStringSize)
                props->SetValueAt(p, f, text.left(OperationRecord::ShowStringSize));
        });
    });
}

// The protocol: who made the record and who changed it last, written with its own
// statement so that it is stored whatever else the record changed.
ResultRecord stampProtocol(Database& db, Recordset& rs, int row, qint64 id, bool isNew,
                           const ObjectSaveActor& actor) {
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime stamp(now.date(),
                          QTime(now.time().hour(), now.time().minute(), now.time().second()));
    const QString userOIDR = actor.UserOIDR.left(OperationRecord::ReferenceSize);
    const QString userName = actor.UserName.left(OperationRecord::UserNameSize);
    ExecResult r;
    if (isNew)
        r = db.Execute(QStringLiteral("UPDATE BROpers SET CreatedByUserOIDR = ?, "
                                      "CreatedByUserName = ?, CreationDate = ?, "
                                      "ChangedByUserOIDR = ?, ChangedByUserName = ?, "
                                      "CorrectionDate = ? WHERE ID = ?"),
                       {Value(userOIDR), Value(userName), Value(stamp), Value(userOIDR),
                        Value(userName), Value(stamp), Value(double(id))});
    else
        r = db.Execute(QStringLiteral("UPDATE BROpers SET ChangedByUserOIDR = ?, "
                                      "ChangedByUserName = ?, CorrectionDate = ? WHERE ID = ?"),
                       {Value(userOIDR), Value(userName), Value(stamp), Value(double(id))});
    if (!r.ok())
        return ResultRecord::Failure(r.Code, r.Text);
    auto put = [&](const char* field, const Value& v) {
        const int f = rs.FieldIndex(QString::fromLatin1(field));
        if (f >= 0)
            rs.SetValueAt(row, f, v);
    };
    if (isNew) {
        put("CreatedByUserOIDR", userOIDR);
        put("CreatedByUserName", userName);
        put("CreationDate", stamp);
    }
    put("ChangedByUserOIDR", userOIDR);
    put("ChangedByUserName", userName);
    put("CorrectionDate", stamp);
    return ResultRecord::Success();
}

ResultRecord writeLog(Database& db, qint64 id, const ObjectSaveActor& actor,
                      const QString& action) {
    const ExecResult r = db.Execute(
        QStringLiteral("INSERT INTO BROperLog (BROperID, UserOIDR, UserName, ChangeDate, Action) "
                       "VALUES (?, ?, ?, ?, ?)"),
        {Value(double(id)), Value(actor.UserOIDR), Value(actor.UserName),
         Value(QDateTime::currentDateTime()), Value(action)});
    return r.ok() ? ResultRecord::Success() : ResultRecord::Failure(r.Code, r.Text);
}

std::shared_ptr<ObjectTable> childTable(const TableDef& def, const QString& parentColumn,
                                        const FieldDefs& shape) {
    auto t = std::make_shared<ObjectTable>();
    t->Table = def;
    t->Hidden = {parentColumn};
    t->Shape = shape;
    return t;
}

} // namespace

QStringList OperationKinds() {
    return {QStringLiteral("O0201500"), QStringLiteral("O0201501"), QStringLiteral("O0201502"),
            QStringLiteral("O0201503"), QStringLiteral("O0201504"), QStringLiteral("O0201505"),
            QStringLiteral("O0201506")};
}

ObjectKind OperationKind(const OperationPostingRules& rules) {
    const Migration m = OperationsMigration();

    auto currency = childTable(FindTable(m, kBRCurrency), QStringLiteral("BRID"),
                               OperationRecord::BRCurrencyFields());
    auto properties = childTable(FindTable(m, kBRProperties), QStringLiteral("BRID"),
                                 OperationRecord::BRPropertiesFields());
    // The demands of the accounts are the chart's, computed on reading: no table.
    auto required = std::make_shared<ObjectTable>();
    required->Shape = OperationRecord::RequiredAddrFields();

    auto entries =
        childTable(FindTable(m, kBR), QStringLiteral("BROperID"), OperationRecord::EntryFields());
    entries->IdSequence = kRecordSequence;
    entries->Children = {{kBRCurrency, currency, QStringLiteral("BRID"), false},
                         {kBRProperties, properties, QStringLiteral("BRID"), false},
                         {kRequiredAddr, required, QString(), true}};

    ObjectKind k;
    k.Code = kinds::Operation;
    k.Title = QStringLiteral("Finansinė operacija");
    k.Root.Table = FindTable(m, QStringLiteral("BROpers"));
    k.Root.Shape = OperationRecord::OperationFields();
    k.Root.IdSequence = kRecordSequence;
    k.Root.Children = {{kBR, entries, QStringLiteral("BROperID"), false}};
    k.LockColumn = QStringLiteral("LockGUID");
    k.Preview = [](const Recordset& rs) {
        return OperationPreview(rs.Field(QStringLiteral("DateD")),
                                rs.Field(QStringLiteral("Number")).toString(),
                                rs.Field(QStringLiteral("Comment")).toString());
    };
    k.OwnerOf = [](Database& db, qint64 id) -> qint64 {
        const QueryResult q =
            db.Query(QStringLiteral("SELECT BROperID FROM BR WHERE ID = ?"), {Value(double(id))});
        return q.ok() && q.RowCount() > 0 ? static_cast<qint64>(q.Scalar().toDouble()) : 0;
    };
    k.PrepareBlank = [](Recordset& rs, const QString& oid) {
        const QString kind = oid.left(8);
        rs.SetField(QStringLiteral("OType"),
                    OperationKinds().contains(kind) ? kind : kinds::Operation);
    };
    k.Hooks.BeforeWrite = [rules](Database& db, Recordset& rs, int row, qint64 id,
                                  const ObjectSaveActor& actor) {
        const ResultRecord checked = checkEntries(db, RememberedPostingRules(rules), rs, row);
        if (!checked.ok())
            return checked;
        fillBeforeWrite(rs, row);
        return CheckOperationCounter(db, rs, row, id, actor);
    };
    k.Hooks.AfterWrite = [](Database& db, Recordset& rs, int row, qint64 id, bool isNew,
                            const ObjectSaveActor& actor) {
        const ResultRecord stamped = stampProtocol(db, rs, row, id, isNew, actor);
        if (!stamped.ok())
            return stamped;
        return writeLog(db, id, actor,
                        isNew ? QStringLiteral("Sukurta") : QStringLiteral("Pakeista"));
    };
    k.Hooks.AfterDelete = [](Database& db, qint64 id, const ObjectSaveActor& actor) {
        return writeLog(db, id, actor, QStringLiteral("Panaikinta"));
    };
    // A batch of operations asks the chart once per account for the whole batch: none of
    // its operations changes the chart.
    k.BatchHooks = [rules] { return OperationKind(RememberedPostingRules(rules)).Hooks; };
    return k;
}

QString OperationPreview(const Value& date, const QString& number, const QString& comment) {
    QStringList parts;
    if (!date.isNull())
        parts << date.toDate().toString(QStringLiteral("yyyy.MM.dd"));
    if (!number.trimmed().isEmpty())
        parts << number.trimmed();
    if (!comment.trimmed().isEmpty())
        parts << comment.trimmed();
    return parts.join(QLatin1Char(' '));
}

} // namespace orvo::host
