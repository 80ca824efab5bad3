#include "accounts/template_rules.h"

#include "core/number_text.h"

namespace orvo {

namespace {

const QString kTemplateCode = QStringLiteral("O0201600");

QString quoted(const QString& text) {
    QString t = text;
    t.replace(QLatin1Char('\''), QStringLiteral("''"));
    return QStringLiteral("'") + t + QStringLiteral("'");
}

void addRow(const RecordsetPtr& rs, const QString& pav, const QString& debit, const QString& kredit,
            const Value& factor, bool group) {
    rs->AddNew();
    rs->SetField(QStringLiteral("Pav"), pav);
    rs->SetField(QStringLiteral("Debit"), debit);
    rs->SetField(QStringLiteral("Kredit"), kredit);
    rs->SetField(QStringLiteral("Factor"), factor);
    rs->SetField(QStringLiteral("GroupFlag"), Value(qint16(group ? 1 : 0)));
    rs->Update();
}

bool walk(const BusinessObjectPtr& bo, const QString& groupOid, const RecordsetPtr& out,
          QString* error, int depth) {
    // A tree deeper than this has a loop in it; stop rather than print for ever.
    if (depth > 100)
        return true;
    const BOResult list = bo->Call(QStringLiteral("DO0201600_GetOrvoObjectList"),
                                   quoted(groupOid) + QStringLiteral(",'',''"));
    if (!list.ok()) {
        *error = list.Text;
        return false;
    }
    const RecordsetPtr rows = list.Data.toRecordset();
    if (!rows)
        return true;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
        const QString name = rows->Field(QStringLiteral("Name")).toString();
        const QString oidr = rows->Field(QStringLiteral("OIDR")).toString();
        if (rows->Field(QStringLiteral("GroupFlag")).toInt32() != 0) {
            addRow(out, name, QString(), QString(), Value(), true);
            if (!walk(bo, oidr, out, error, depth + 1))
                return false;
            continue;
        }
        const BOResult lines = bo->Call(QStringLiteral("GetTemplateAccAndAddr"), quoted(oidr));
        if (!lines.ok()) {
            *error = lines.Text;
            return false;
        }
        const RecordsetPtr acc = lines.Data.toRecordset();
        if (!acc || acc->RecordCount() == 0) {
            addRow(out, name, QString(), QString(), Value(), false);
            continue;
        }
        bool first = true;
        for (acc->MoveFirst(); !acc->Eof(); acc->MoveNext()) {
            addRow(out, first ? name : QString(), acc->Field(QStringLiteral("AccountD")).toString(),
                   acc->Field(QStringLiteral("AccountC")).toString(),
                   acc->Field(QStringLiteral("Factor")), false);
            first = false;
        }
    }
    return true;
}

} // namespace

QString TemplateFactorText(const QString& typed) {
    bool ok = false;
    const double value = NumberFromText(typed, &ok);
    if (typed.trimmed().isEmpty() || !ok || value < 0.01)
        return QStringLiteral("1");
    return typed;
}

double TemplateFactorValue(const QString& typed) {
    return NumberFromText(TemplateFactorText(typed));
}

TemplateAccountShown ShowTemplateAccount(const RecordsetPtr& accounts, const QString& account) {
    const QString number = account.trimmed();
    if (number == QLatin1String("0"))
        return {number, QString(), QStringLiteral("Pradiniai likučiai")};
    if (accounts) {
        for (accounts->MoveFirst(); !accounts->Eof(); accounts->MoveNext())
            if (accounts->Field(QStringLiteral("Account")).toString() == number)
                return {number, QString(), accounts->Field(QStringLiteral("Name")).toString()};
    }
    return {number, QStringLiteral("*"), QStringLiteral("Nežinoma sąskaita")};
}

FieldDefs TemplatePrintFields() {
    return {FieldDef::Make(QStringLiteral("Pav"), FieldType::VarWChar),
            FieldDef::Make(QStringLiteral("Debit"), FieldType::VarWChar, 20),
            FieldDef::Make(QStringLiteral("Kredit"), FieldType::VarWChar, 20),
            FieldDef::Make(QStringLiteral("Factor"), FieldType::Double),
            FieldDef::Make(QStringLiteral("GroupFlag"), FieldType::SmallInt)};
}

RecordsetPtr TemplatePrintRows(const BusinessObjectPtr& bo, const QString& mode, QString* error) {
    if (!bo) {
        *error = QStringLiteral("Šablonų sąrašas: knyga neatidaryta.");
        return nullptr;
    }
    auto out = Recordset::Create(TemplatePrintFields());
    const QString m = mode.trimmed();
    bool ok = true;
    if (m.isEmpty() || m.compare(QLatin1String("ALL"), Qt::CaseInsensitive) == 0) {
        ok = walk(bo, kTemplateCode, out, error, 0);
    } else {
        // One group: its own row first, then what it holds.
        const QString oidr = m.startsWith(kTemplateCode) ? m : kTemplateCode + m;
        const BOResult group = bo->Call(QStringLiteral("DO0201600_GetOrvoObject"), quoted(oidr));
        if (!group.ok()) {
            *error = group.Text;
            return nullptr;
        }
        const RecordsetPtr rs = group.Data.toRecordset();
        if (rs && rs->RecordCount() > 0) {
            rs->MoveFirst();
            addRow(out, rs->Field(QStringLiteral("Name")).toString(), QString(), QString(), Value(),
                   true);
        }
        ok = walk(bo, oidr, out, error, 0);
    }
    if (!ok)
        return nullptr;
    out->AcceptChanges();
    out->MoveFirst();
    return out;
}

} // namespace orvo
