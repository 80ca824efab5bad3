#include "host/methods/debt_query.h"

#include "host/storage/database.h"

#include <QHash>
#include <QPair>
#include <algorithm>
#include <charconv>
#include <tuple>
#include <utility>
#include <vector>

namespace orvo::host {

namespace {

const QString kEntryKind = QStringLiteral("O0201500");
const QString kFirmKind = QStringLiteral("O0000100");
const QString kBaseCode = QStringLiteral("   ");

// References per statement when they are looked up one by one.
constexpr int kReferenceBatch = 400;

qint64 idAt(const QueryResult& q, int row, int column) {
    return static_cast<qint64>(q.At(row, column).toDouble());
}

QString codeOf(const QString& text) {
    const QString code = text.trimmed();
    return code.isEmpty() ? kBaseCode : code;
}

// The account column of a side, and the condition that picks a currency or addressee row
// of that side: rows keep 1 for the debit side and -1 (any other value) for the credit.
QString accountColumn(int sign) {
    return sign == 1 ? QStringLiteral("AccountD") : QStringLiteral("AccountC");
}

QString sideCondition(const QString& alias, int sign) {
    return alias + (sign == 1 ? QStringLiteral(".Sign = 1") : QStringLiteral(".Sign <> 1"));
}

QString placeholders(int count) {
    QStringList marks;
    marks.reserve(count);
    for (int i = 0; i < count; ++i)
        marks << QStringLiteral("?");
    return marks.join(QStringLiteral(", "));
}

// One entry that refers to a debt, as the rule of covers needs it.
struct Cover {
    QString Reference;
    int Sign = 1;
    qint64 Cents = 0;
    qint64 CurrCents = 0;
    QString Code;
    qint64 EntryId = 0;
};

// The rule of covers, in one place: the opposite side reduces the rest, the same side adds
// to it; the currency rest moves only by a side in the debt's own currency.
void applyCover(DebtRow& debt, const Cover& c) {
    if (c.EntryId == debt.EntryId)
        return;
    const int direction = c.Sign == debt.Sign ? 1 : -1;
    debt.RestCents += direction * c.Cents;
    if (debt.CurrencyCode != kBaseCode && c.Code == debt.CurrencyCode)
        debt.RestCurrCents += direction * c.CurrCents;
}

Cover coverAt(const RowCursor& row) {
    Cover c;
    c.Reference = row.Text(0);
    c.Sign = row.Int64(1) == 1 ? 1 : -1;
    c.Cents = row.Int64(2);
    c.CurrCents = row.Int64(3);
    c.Code = codeOf(row.Text(4));
    c.EntryId = row.Int64(5);
    return c;
}

} // namespace

QString DebtQuery::EntryReference(qint64 entryId) {
    // Written in place, in one allocation: a long debt list makes one per row.
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, entryId).ptr;
    const qsizetype count = end - digits;
    QString out(kEntryKind.size() + count, Qt::Uninitialized);
    QChar* at = std::copy(kEntryKind.cbegin(), kEntryKind.cend(), out.data());
    for (qsizetype i = 0; i < count; ++i)
        at[i] = QLatin1Char(digits[i]);
    return out;
}

QPair<QString, QString> DebtQuery::KindRange(const QString& kind) {
    QString after = kind;
    if (!after.isEmpty())
        after[after.size() - 1] = QChar(after.at(after.size() - 1).unicode() + 1);
    return {kind, after};
}

ResultRecord DebtQuery::FirmAndBranches(Database& db, const QString& addressee, QStringList* out) {
    *out = {addressee};
    if (!addressee.startsWith(kFirmKind) || addressee.size() <= kFirmKind.size())
        return ResultRecord::Success();
    bool ok = false;
    const qint64 firm = addressee.mid(kFirmKind.size()).toLongLong(&ok);
    if (!ok)
        return ResultRecord::Success();
    const QueryResult q = db.Query(QStringLiteral("SELECT ID FROM Firms WHERE ParentID = ? "
                                                  "ORDER BY ID"),
                                   {Value(double(firm))});
    if (!q.ok())
        return ResultRecord::Failure(q.Code, q.Text);
    for (int i = 0; i < q.RowCount(); ++i)
        out->append(kFirmKind + QString::number(idAt(q, i, 0)));
    return ResultRecord::Success();
}

ResultRecord DebtQuery::readCandidates(const DebtSelection& s, int sign,
                                       QVector<Candidate>& found) {
    // Every statement below gives the same columns: the entry, its operation, the
    // addressee, the side's currency row, the kept rests and whether they hold at the date,
    // the addressee row and the currency row.
    const auto take = [&](const RowCursor& c) {
        Candidate& candidate = found.emplaceBack();
        candidate.AddresseeRowId = c.Int64(18);
        candidate.CurrencyRowId = c.IsNull(19) ? 0 : c.Int64(19);
        DebtRow& d = candidate.Row;
        d.EntryId = c.Int64(0);
        d.OperationId = c.Int64(1);
        d.DateD = c.Date(2);
        d.FullCents = c.Int64(3);
        // The side's own account is the one asked for, which every statement matches
        // exactly; only the other side's is read.
        d.AccountD = sign == 1 ? s.Account : c.Text(4);
        d.AccountC = sign == 1 ? c.Text(5) : s.Account;
        const QString info = c.Text(6).trimmed();
        d.StoredCurrencyRate = c.Double(7);
        d.Number = c.Text(8);
        // The entry's own text names the document best; an entry without one shows the
        // operation's comment.
        d.Comment = info.isEmpty() ? c.Text(9) : info;
        // A kind's list names a few thousand addressees over a hundred thousand rows.
        d.FOIDR = c.RecurringText(10);
        d.ShowString = c.RecurringText(11);
        d.CurrencyCode = codeOf(c.Text(12));
        d.FullCurrCents = d.CurrencyCode == kBaseCode ? 0 : c.Int64(13);
        d.RateCurr = c.Double(14);
        d.Sign = sign;
        // Not kept: the whole sums; covered by the date at the latest (or never): the
        // kept rests; covered also later: counted at the date below.
        const qint64 covered = c.Int64(17);
        d.RestCents = covered == 1 ? c.Int64(15) : d.FullCents;
        d.RestCurrCents = covered == 1 ? c.Int64(16) : d.FullCurrCents;
        candidate.CountLater = covered == 2;
        return true;
    };
    const QPair<QString, QString> refs = KindRange(kEntryKind);
    const QString addressee = s.Addressee.trimmed();
    // SQLite takes the tables in the order written around CROSS JOIN: the addressee's rows
    // lead for one addressee.
    const QString ordered =
        db_.Kind() == Backend::SQLite ? QStringLiteral(" CROSS JOIN ") : QStringLiteral(" JOIN ");
    const QString keptSide = QStringLiteral("k.BRID = b.ID AND k.Sign = ") + QString::number(sign);
    // A kept debt with an addressee is open at the date while ClosedOn lies after it.
    const QStringList keptOpen{QStringLiteral("k.Account = ?"), QStringLiteral("k.DateD <= ?"),
                               QStringLiteral("k.ClosedOn > ?")};
    QString from;
    QStringList where;
    ValueArray params;
    if (addressee.size() > 8) {
        // One addressee (or a firm with its branches): its rows through the FOIDR index.
        QStringList who;
        if (s.WithBranches) {
            const ResultRecord r = FirmAndBranches(db_, addressee, &who);
            if (!r.ok())
                return r;
        } else {
            who = {addressee};
        }
        from = QStringLiteral("BRProperties p") + ordered +
               QStringLiteral("BR b ON b.ID = p.BRID") + ordered +
               QStringLiteral("BROpenItems k ON ") + keptSide;
        where << QStringLiteral("p.FOIDR IN (") + placeholders(who.size()) + QLatin1Char(')')
              << sideCondition(QStringLiteral("p"), sign) << keptOpen;
        for (const QString& w : who)
            params << Value(w);
        params << Value(s.Account) << Value(s.Date) << Value(s.Date);
    } else if (addressee.size() == 8) {
        // A whole kind: the kept list rows of the account's debts still open, one index
        // range of one table holding every column the list shows.
        const QPair<QString, QString> kind = KindRange(addressee);
        return db_.QueryEach(
            QStringLiteral("SELECT BRID, BROperID, DateD, SumA, AccountD, AccountC, Info, "
                           "CurrencyRate, Number, Comment, FOIDR, ShowString, FCurrencyCode, "
                           "SumCurr, RateCurr, RestSum, RestSumCurr, CASE WHEN LastCoverDate IS "
                           "NULL OR LastCoverDate <= ? THEN 1 ELSE 2 END, AddresseeID, CurrencyID "
                           "FROM BRDebtList WHERE Account = ? AND Sign = ? AND ClosedOn > ? AND "
                           "DateD <= ? AND FOIDR >= ? AND FOIDR < ?"),
            {Value(s.Date), Value(s.Account), Value(sign), Value(s.Date), Value(s.Date),
             Value(kind.first), Value(kind.second)},
            [&](const RowCursor& c) { return take(c); });
    } else {
        // Any addressee or none: every entry of the account, with the first addressee of the
        // side that is no reference. An entry side without a kept row has no addressee and
        // was never covered; it is a debt unless it refers to an entry on that side.
        from = QStringLiteral("BR b LEFT JOIN BROpenItems k ON ") + keptSide +
               QStringLiteral(" LEFT JOIN BRProperties p ON p.BRID = b.ID AND ") +
               sideCondition(QStringLiteral("p"), sign) +
               QStringLiteral(" AND NOT (p.FOIDR >= ? AND p.FOIDR < ?)");
        where << QStringLiteral("b.") + accountColumn(sign) + QStringLiteral(" = ?")
              << QStringLiteral("b.DateD <= ?")
              << QStringLiteral("(CASE WHEN k.BRID IS NOT NULL THEN k.ClosedOn > ? ELSE NOT "
                                "EXISTS (SELECT 1 FROM BRProperties x WHERE x.BRID = b.ID AND ") +
                     sideCondition(QStringLiteral("x"), sign) +
                     QStringLiteral(" AND x.FOIDR >= ? AND x.FOIDR < ?) END)");
        params << Value(refs.first) << Value(refs.second) << Value(s.Account) << Value(s.Date)
               << Value(s.Date) << Value(refs.first) << Value(refs.second);
    }
    from += QStringLiteral(" JOIN BROpers o ON o.ID = b.BROperID LEFT JOIN BRCurrency c ON "
                           "c.BRID = b.ID AND ") +
            sideCondition(QStringLiteral("c"), sign);
    const QString full =
        QStringLiteral("SELECT b.ID, b.BROperID, b.DateD, b.SumA, b.AccountD, b.AccountC, b.Info, "
                       "b.CurrencyRate%1, o.Number, o.Comment, p.FOIDR, p.ShowString, "
                       "c.FCurrencyCode, c.SumCurr, c.RateCurr, k.RestSum, k.RestSumCurr, "
                       "CASE WHEN k.BRID IS NULL THEN 0 WHEN k.LastCoverDate IS NULL OR "
                       "k.LastCoverDate <= ? THEN 1 ELSE 2 END, p.ID, c.ID FROM ")
            .arg(sign == 1 ? QLatin1Char('D') : QLatin1Char('C')) +
        from + QStringLiteral(" WHERE ") + where.join(QStringLiteral(" AND "));
    params.prepend(Value(s.Date));

    return db_.QueryEach(full, params, [&](const RowCursor& c) { return take(c); });
}

ResultRecord DebtQuery::applyCovers(const DebtSelection& s, QVector<DebtRow>& rows,
                                    const QVector<int>& uncounted) {
    if (uncounted.isEmpty())
        return ResultRecord::Success();
    QHash<QString, int> byReference;
    byReference.reserve(uncounted.size());
    for (const int i : uncounted)
        byReference.insert(EntryReference(rows.at(i).EntryId), i);
    const RowVisitor take = [&](const RowCursor& row) {
        const Cover c = coverAt(row);
        const auto it = byReference.constFind(c.Reference);
        if (it != byReference.constEnd())
            applyCover(rows[it.value()], c);
        return true;
    };

    if (uncounted.size() <= referenceLookupLimit_) {
        // The referring rows through the FOIDR index; the referring entry counts only when
        // the debt's account stands on the side its reference names.
        for (int from = 0; from < uncounted.size(); from += kReferenceBatch) {
            const int count = std::min(kReferenceBatch, int(uncounted.size()) - from);
            ValueArray params;
            for (int i = 0; i < count; ++i)
                params << Value(EntryReference(rows.at(uncounted.at(from + i)).EntryId));
            params << Value(s.Date) << Value(s.Account) << Value(s.Account);
            const ResultRecord r = db_.QueryEach(
                QStringLiteral("SELECT r.FOIDR, r.Sign, c.SumA, k.SumCurr, k.FCurrencyCode, c.ID "
                               "FROM BRProperties r JOIN BR c ON c.ID = r.BRID LEFT JOIN "
                               "BRCurrency k ON k.BRID = c.ID AND ((r.Sign = 1 AND k.Sign = 1) "
                               "OR (r.Sign <> 1 AND k.Sign <> 1)) WHERE r.FOIDR IN (") +
                    placeholders(count) +
                    QStringLiteral(") AND c.DateD <= ? AND ((r.Sign = 1 AND c.AccountD = ?) OR "
                                   "(r.Sign <> 1 AND c.AccountC = ?))"),
                params, take);
            if (!r.ok())
                return r;
        }
        return ResultRecord::Success();
    }

    // Many debts: every entry of the account that carries a reference on the account's
    // side, one pass per side through the account's index.
    const QPair<QString, QString> refs = KindRange(kEntryKind);
    for (const int side : {1, -1}) {
        const QString sql =
            QStringLiteral("SELECT r.FOIDR, r.Sign, c.SumA, k.SumCurr, k.FCurrencyCode, c.ID "
                           "FROM BR c JOIN BRProperties r ON r.BRID = c.ID AND ") +
            sideCondition(QStringLiteral("r"), side) +
            QStringLiteral(" AND r.FOIDR >= ? AND r.FOIDR < ? LEFT JOIN BRCurrency k ON "
                           "k.BRID = c.ID AND ") +
            sideCondition(QStringLiteral("k"), side) + QStringLiteral(" WHERE c.") +
            accountColumn(side) + QStringLiteral(" = ? AND c.DateD <= ?");
        const ResultRecord r = db_.QueryEach(
            sql, {Value(refs.first), Value(refs.second), Value(s.Account), Value(s.Date)}, take);
        if (!r.ok())
            return r;
    }
    return ResultRecord::Success();
}

DebtList DebtQuery::Open(const DebtSelection& s) {
    DebtList out;
    if (s.Account.trimmed().isEmpty() || !s.Date.isValid())
        return out;
    QVector<Candidate> found;
    for (const int sign : {1, -1}) {
        if (s.Sign != 0 && s.Sign != sign)
            continue;
        const ResultRecord r = readCandidates(s, sign, found);
        if (!r.ok())
            return {r.Code, r.Text, {}};
    }
    // By date and entry, the debit debt of an entry before its credit debt; sorted here
    // rather than by the database, which does it slower with every column in tow. Compact
    // keys are sorted and each row moved once, since a row is large. An entry named by two
    // addressees of the kind on one side, or with two currency rows on it, comes twice, side
    // by side: it is one debt, under the first addressee and in the first currency row.
    struct Key {
        qint64 Day;
        qint64 Entry;
        int Side;
        qint64 Addressee;
        qint64 Currency;
        int At;
        bool operator<(const Key& o) const {
            return std::tie(Day, Entry, Side, Addressee, Currency) <
                   std::tie(o.Day, o.Entry, o.Side, o.Addressee, o.Currency);
        }
    };
    std::vector<Key> keys;
    keys.reserve(found.size());
    for (int i = 0; i < found.size(); ++i) {
        const DebtRow& d = found.at(i).Row;
        keys.push_back({d.DateD.toJulianDay(), d.EntryId, -d.Sign, found.at(i).AddresseeRowId,
                        found.at(i).CurrencyRowId, i});
    }
    // The kept list rows of debts that all stay open come in this order already.
    if (!std::is_sorted(keys.cbegin(), keys.cend()))
        std::sort(keys.begin(), keys.end());
    QVector<int> uncounted;
    out.Rows.reserve(found.size());
    for (const Key& k : keys) {
        Candidate& c = found[k.At];
        if (!out.Rows.isEmpty() && out.Rows.constLast().EntryId == c.Row.EntryId &&
            out.Rows.constLast().Sign == c.Row.Sign)
            continue;
        if (c.CountLater)
            uncounted << out.Rows.size();
        out.Rows.append(std::move(c.Row));
    }
    found.clear();
    const ResultRecord covered = applyCovers(s, out.Rows, uncounted);
    if (!covered.ok())
        return {covered.Code, covered.Text, {}};
    out.Rows.removeIf([](const DebtRow& d) { return d.RestCents == 0 && d.RestCurrCents == 0; });
    return out;
}

} // namespace orvo::host
