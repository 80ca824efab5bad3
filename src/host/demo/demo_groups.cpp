#include "host/demo/demo_groups.h"

#include "core/recordset.h"
#include "host/objects/group_kind.h"
#include "host/objects/object_store.h"

namespace orvo::host {

namespace {

// ANGroupBy and ANCycle as the group editor stores them: the index of the chosen item.
constexpr int kByGroup = 1;
constexpr int kByDocumentKind = 4;
constexpr int kYear = 3;

struct DemoGroup {
    const char* name;
    const char* formOid;
    // Numbering: mask parts joined by "_", prefix, template (its length pads the counter).
    const char* mask;
    const char* prefix;
    const char* numberTemplate;
    int groupBy;
    // A series instead of a counter; empty for none.
    const char* series;
    bool withTemplates;
    bool saleByDefault;
};

ResultRecord failed(const QString& what, const QString& why) {
    return ResultRecord::Failure(
        1, QStringLiteral("Nepavyko įrašyti demonstracinės grupės „%1“: %2").arg(what, why));
}

ResultRecord save(Database& db, const QString& name, qint64 parentId, const DemoGroup* g,
                  const DemoTemplateIds& templates, const QDate& from, qint64* id) {
    const ObjectKind kind = GroupKind();
    ObjectStore store(db);
    const BOResult blank = store.ReadBlank(kind);
    const RecordsetPtr rs = blank.ok() ? blank.Data.toRecordset() : nullptr;
    if (!rs)
        return failed(name, blank.Text);
    rs->MoveFirst();
    rs->SetField(QStringLiteral("Name"), name);
    if (parentId > 0)
        rs->SetField(QStringLiteral("ParentID"), Value(double(parentId)));
    rs->SetField(QStringLiteral("GroupFlag"), Value(qint16(g ? 0 : 1)));
    if (g) {
        rs->SetField(QStringLiteral("FormOID"), QString::fromLatin1(g->formOid));
        rs->SetField(QStringLiteral("ANDateFrom"), Value(from));
        rs->SetField(QStringLiteral("ANMinimal"), Value(qint32(1)));
        rs->SetField(QStringLiteral("ANCycle"), Value(qint32(kYear)));
        rs->SetField(QStringLiteral("ANGroupBy"), Value(qint32(g->groupBy)));
        rs->SetField(QStringLiteral("ANMask"), QString::fromLatin1(g->mask));
        rs->SetField(QStringLiteral("ANPrefix"), QString::fromLatin1(g->prefix));
        rs->SetField(QStringLiteral("ANTemplate"), QString::fromLatin1(g->numberTemplate));
        const QString series = QString::fromLatin1(g->series);
        rs->SetField(QStringLiteral("SerijaIndication"), Value(qint16(series.isEmpty() ? 0 : 1)));
        if (!series.isEmpty())
            rs->SetField(QStringLiteral("Serija"), series);
        if (g->withTemplates)
            rs->SetField(QStringLiteral("BRTemplateID"), Value(double(templates.MainGroup)));
        if (g->saleByDefault)
            rs->SetField(QStringLiteral("DefaultTemplateID"), Value(double(templates.Sale)));
    }
    rs->Update();
    const BOResult saved = store.Save(kind, 0, rs);
    if (!saved.ok())
        return failed(name, saved.Text);
    *id = static_cast<qint64>(rs->Field(QStringLiteral("ID")).toDouble());
    return *id > 0 ? ResultRecord::Success() : failed(name, QStringLiteral("negautas numeris"));
}

ResultRecord saveAll(Database& db, const QString& general, const QVector<DemoGroup>& groups,
                     const DemoTemplateIds& templates, const QDate& from) {
    qint64 parent = 0;
    ResultRecord r = save(db, general, 0, nullptr, templates, from, &parent);
    for (int i = 0; r.ok() && i < groups.size(); ++i) {
        qint64 id = 0;
        r = save(db, QString::fromUtf8(groups[i].name), parent, &groups[i], templates, from, &id);
    }
    return r;
}

} // namespace

ResultRecord CreateDemoGroups(Database& db, const DemoTemplateIds& templates, const QDate& today) {
    const QDate from(today.year(), 1, 1);
    const QVector<DemoGroup> operations = {
        {"Bendrosios operacijos", "O0201500", "Date_Prefix_AutoNumber", "BO", "0000", kByGroup, "",
         true, false},
        {"Pardavimai", "O0201500", "Prefix_AutoNumber", "PR", "00000", kByGroup, "", true, true},
        {"Metų uždarymas", "O0201506", "Date_AutoNumber", "", "000", kByGroup, "", false, false},
    };
    const QVector<DemoGroup> money = {
        {"Mokėjimo nurodymai", "O0201501", "Prefix_AutoNumber", "MN", "0000", kByDocumentKind, "",
         true, false},
        {"Pinigų gavimas", "O0201502", "Prefix_AutoNumber", "PG", "0000", kByDocumentKind, "", true,
         false},
        {"Kasos pajamų orderiai", "O0201504", "", "", "", kByGroup, "KPO", true, false},
        {"Kasos išlaidų orderiai", "O0201503", "", "", "", kByGroup, "KIO", true, false},
        {"Avanso apyskaitos", "O0201505", "", "", "", kByGroup, "AA", false, false},
    };
    ResultRecord r =
        saveAll(db, QStringLiteral("Finansinės operacijos"), operations, templates, from);
    if (!r.ok())
        return r;
    return saveAll(db, QStringLiteral("Pinigų apskaita"), money, templates, from);
}

} // namespace orvo::host
