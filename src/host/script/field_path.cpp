#include "host/script/field_path.h"

namespace orvo::host {

namespace {

RowPlace failure(const QString& path, const QString& reason) {
    return {nullptr, QStringLiteral("Kelias „%1“: %2").arg(path, reason)};
}

// The nested recordset held in field `name` of the current row of `rs`.
RecordsetPtr nestedOf(const Recordset& rs, const QString& name, QString* reason) {
    const int idx = rs.FieldIndex(name);
    if (idx < 0) {
        *reason = QStringLiteral("nėra lauko „%1“.").arg(name);
        return nullptr;
    }
    if (rs.FieldDefinitions().at(idx).type != FieldType::Chapter) {
        *reason = QStringLiteral("laukas „%1“ nėra įdėtas įrašų rinkinys.").arg(name);
        return nullptr;
    }
    const RecordsetPtr child = rs.Field(idx).toRecordset();
    if (!child)
        *reason = QStringLiteral("lauke „%1“ nėra įrašų rinkinio.").arg(name);
    return child;
}

bool hasCurrentRow(const Recordset& rs) {
    return !rs.Bof() && !rs.Eof();
}

} // namespace

RowPlace FieldPath::WalkRows(const RecordsetPtr& root, const QStringList& pairs,
                             const QString& shownPath) {
    if (!root)
        return {nullptr, QStringLiteral("Objektas dar neturi įrašo.")};
    if (!hasCurrentRow(*root))
        return {nullptr, QStringLiteral("Įrašų rinkinys neturi dabartinės eilutės.")};
    if (pairs.size() % 2 != 0)
        return failure(shownPath, QStringLiteral("po įdėto lauko turi eiti eilutės numeris."));
    RecordsetPtr rs = root;
    for (int i = 0; i < pairs.size(); i += 2) {
        QString reason;
        const RecordsetPtr child = nestedOf(*rs, pairs.at(i), &reason);
        if (!child)
            return failure(shownPath, reason);
        const QString row = pairs.at(i + 1).trimmed();
        if (row == QLatin1String("new")) {
            if (i + 2 < pairs.size())
                return failure(shownPath,
                               QStringLiteral("nauja eilutė („new“) galima tik kelio gale."));
            child->AddNew();
        } else {
            bool ok = false;
            int n = row.toInt(&ok);
            if (!ok)
                return failure(shownPath,
                               QStringLiteral("netinkamas eilutės numeris „%1“.").arg(row));
            const int count = child->RecordCount();
            if (n < 0)
                n += count;
            if (n < 0 || n >= count)
                return failure(shownPath, QStringLiteral("rinkinyje „%1“ nėra eilutės %2 (yra %3).")
                                              .arg(pairs.at(i), row)
                                              .arg(count));
            child->SetAbsolutePosition(n + 1);
        }
        rs = child;
    }
    return {rs, QString()};
}

bool FieldPath::SplitKey(const QString& key, QStringList* pairs, QString* field, QString* error) {
    QStringList parts = key.split(QLatin1Char('/'));
    *field = parts.takeLast().trimmed();
    if (field->isEmpty() || parts.size() % 2 != 0) {
        *error = QStringLiteral("Kelias „%1“: reikia lauko, eilutės numerio ir lauko, pvz. "
                                "„BR/0/SumA“.")
                     .arg(key);
        return false;
    }
    *pairs = parts;
    return true;
}

RowPlace FieldPath::NestedRecordset(const RecordsetPtr& root, const QString& path) {
    QStringList pairs;
    QString field;
    QString error;
    if (!SplitKey(path, &pairs, &field, &error))
        return {nullptr, error};
    const RowPlace row = WalkRows(root, pairs, path);
    if (!row.ok())
        return row;
    QString reason;
    const RecordsetPtr child = nestedOf(*row.Rs, field, &reason);
    if (!child)
        return failure(path, reason);
    return {child, QString()};
}

} // namespace orvo::host
