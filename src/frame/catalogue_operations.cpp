#include "frame/catalogue_operations.h"

#include "core/null_readers.h"
#include "frame/catalogue_rights_forms.h"
#include "frame/messages.h"

#include <QHash>

namespace orvo::Catalogue {

QString DebtsQueryName(const QString& foidr, int sign) {
    if (foidr.size() < 8)
        return QStringLiteral("Debts3");
    switch (sign) {
    case 1:
        return QStringLiteral("DebtsByDebit");
    case -1:
        return QStringLiteral("DebtsByCredit");
    case 0:
        return foidr.size() < 9 ? QStringLiteral("Debts2") : QStringLiteral("Debts1");
    default:
        return QString();
    }
}

QString RelatedKey(const QString& oidr, const QString& foidr) {
    return oidr + QStringLiteral(";") + foidr;
}

QPair<QString, QString> SplitRelatedKey(const QString& key) {
    const int at = key.indexOf(QLatin1Char(';'));
    if (at < 0)
        return {key, QString()};
    return {key.left(at), key.mid(at + 1)};
}

void FillRelatedList(ListControl& list, const RecordsetPtr& rs) {
    list.Clear();
    if (!rs)
        return;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        const Value preview = rs->Field(QStringLiteral("Preview"));
        const QString text =
            !preview.isNull()
                ? preview.toString()
                : NzString(rs->Field(QStringLiteral("BROperDate"))) + QStringLiteral(" ") +
                      NzString(rs->Field(QStringLiteral("Number"))) + QStringLiteral(" ") +
                      NzString(rs->Field(QStringLiteral("Comment")));
        list.AddItem(RelatedKey(NzString(rs->Field(QStringLiteral("BROperOIDR"))),
                                NzString(rs->Field(QStringLiteral("BROperFOIDR")))),
                     text);
    }
}

QString EntryIdList(const OrvoObjectUIOPtr& uio) {
    const RecordsetPtr br = uio ? uio->Field(QStringLiteral("BR")).toRecordset() : nullptr;
    if (!br)
        return QString();
    const int idField = br->FieldIndex(QStringLiteral("ID"));
    if (idField < 0)
        return QString();
    QStringList ids;
    for (int row = 0; row < br->RowCountAll(); ++row) {
        if (br->StatusAt(row) == RowStatus::Deleted)
            continue;
        const QString id = NzString(br->ValueAt(row, idField));
        if (!id.isEmpty())
            ids.append(id);
    }
    return ids.join(QStringLiteral(","));
}

RecordsetPtr ReadRelated(const OrvoObjectUIOPtr& uio) {
    if (!uio)
        return nullptr;
    const QString foidr = NzString(uio->Field(QStringLiteral("FOIDR")));
    const ValueResult r = uio->Properties(QStringLiteral("RelatedBR"),
                                          QStringLiteral("'") + foidr + QStringLiteral("','") +
                                              EntryIdList(uio) + QStringLiteral("'"));
    return r.ok() ? r.Value.toRecordset() : nullptr;
}

namespace {

// Whether every referenced operation of the entries is dated on or before `date`.
bool entriesFit(const OrvoObjectUIOPtr& uio, const QDate& date) {
    const RecordsetPtr br = uio ? uio->Field(QStringLiteral("BR")).toRecordset() : nullptr;
    if (!br)
        return true;
    const int propsField = br->FieldIndex(QStringLiteral("BRProperties"));
    if (propsField < 0)
        return true;
    QHash<QString, QDate> fetched;
    for (int row = 0; row < br->RowCountAll(); ++row) {
        if (br->StatusAt(row) == RowStatus::Deleted)
            continue;
        const RecordsetPtr props = br->ValueAt(row, propsField).toRecordset();
        if (!props)
            continue;
        const int foidrField = props->FieldIndex(QStringLiteral("FOIDR"));
        if (foidrField < 0)
            continue;
        for (int p = 0; p < props->RowCountAll(); ++p) {
            if (props->StatusAt(p) == RowStatus::Deleted)
                continue;
            const QString foidr = NzString(props->ValueAt(p, foidrField));
            if (foidr.left(8) != QLatin1String("O0201500"))
                continue;
            if (!fetched.contains(foidr)) {
                const OrvoObjectUIOPtr referenced = GetUIOByOIDR(foidr);
                fetched.insert(
                    foidr, referenced ? NzDate(referenced->Field(QStringLiteral("DateD")), QDate())
                                      : QDate());
            }
            const QDate referencedDate = fetched.value(foidr);
            if (referencedDate.isValid() && date < referencedDate)
                return false;
        }
    }
    return true;
}

bool relatedFit(const RecordsetPtr& related, const QDate& date) {
    if (!related)
        return true;
    const int dateField = related->FieldIndex(QStringLiteral("DateD"));
    if (dateField < 0)
        return true;
    for (int row = 0; row < related->RowCountAll(); ++row) {
        if (related->StatusAt(row) == RowStatus::Deleted)
            continue;
        const QDate d = NzDate(related->ValueAt(row, dateField), QDate());
        if (d.isValid() && d > date)
            return false;
    }
    return true;
}

} // namespace

bool CheckDatesAgainstReferences(const OrvoObjectUIOPtr& uio, const QDate& date,
                                 const RecordsetPtr& related) {
    if (entriesFit(uio, date) && relatedFit(related, date))
        return true;
    ShowInformation(QStringLiteral("Data neatitinka esančių nuorodų datoms!"));
    return false;
}

} // namespace orvo::Catalogue
