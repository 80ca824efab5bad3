#include "host/demo/demo_chart.h"

#include "core/recordset.h"
#include "host/methods/account_chart.h"
#include "host/methods/account_record_methods.h"
#include "host/methods/method_codes.h"
#include "host/storage/database.h"

#include <QHash>

namespace orvo::host {

namespace {

struct Demand {
    int sign;
    const char* foid;
};

struct DemoAccount {
    const char* parent; // number of the parent; empty for a class
    const char* account;
    const char* name;
    const char* type;
    const char* role; // role code; empty for none
    QVector<Demand> required;
    QVector<Demand> allowed;
};

const QVector<Demand> kNone;
const QVector<Demand> kFirm{{0, "O0000100"}};
const QVector<Demand> kAnyone{{0, "O0000100"}, {0, "O0001402"}, {0, "O0001401"}};
const QVector<Demand> kBankAccount{{0, "O0000500"}};

const QVector<DemoAccount>& chart() {
    static const QVector<DemoAccount> list = {
        {"", "1", "Ilgalaikis turtas", "D", "", kNone, kNone},
        {"1", "1200", "Materialusis turtas", "D", "", kNone, kNone},
        {"1", "1290", "Materialiojo turto nusidėvėjimas", "K", "", kNone, kNone},
        {"", "2", "Trumpalaikis turtas", "D", "", kNone, kNone},
        {"2", "2040", "Prekės, skirtos perparduoti", "D", "", kNone, kNone},
        {"2", "2410", "Pirkėjų įsiskolinimai", "D", "240", kFirm, kNone},
        {"2", "2420", "Kitos gautinos sumos", "D", "220", kNone, kAnyone},
        {"2", "2441", "Gautinas PVM", "D", "", kNone, kNone},
        {"2", "27", "Pinigai ir pinigų ekvivalentai", "D", "", kNone, kNone},
        {"27", "2711", "Sąskaitos bankuose", "D", "2710", kNone, kBankAccount},
        {"27", "2712", "Sąskaitos bankuose užsienio valiuta", "D", "2710", kNone, kBankAccount},
        {"27", "2720", "Kasa", "D", "2720", kNone, kNone},
        {"27", "2730", "Pinigai kelyje", "D", "", kNone, kNone},
        {"", "3", "Nuosavas kapitalas", "K", "", kNone, kNone},
        {"3", "3010", "Įstatinis kapitalas", "K", "", kNone, kNone},
        {"3", "34", "Nepaskirstytasis pelnas (nuostoliai)", "K", "", kNone, kNone},
        {"34", "340", "Nepaskirstytasis pelnas", "K", "39", kNone, kNone},
        {"34", "341", "Nepaskirstytieji nuostoliai", "D", "", kNone, kNone},
        {"3", "39", "Suvestinės sąskaitos", "DK", "", kNone, kNone},
        {"39", "391", "Pelno (nuostolių) suvestinė sąskaita", "DK", "", kNone, kNone},
        {"", "4", "Mokėtinos sumos ir įsipareigojimai", "K", "", kNone, kNone},
        {"4", "4430", "Skolos tiekėjams", "K", "450", kFirm, kNone},
        {"4", "4480", "Kitos mokėtinos sumos", "K", "460", kNone, kAnyone},
        {"4", "4492", "Mokėtinas PVM", "K", "", kNone, kNone},
        {"", "5", "Pajamos", "K", "", kNone, kNone},
        {"5", "5000", "Pardavimo pajamos", "K", "", kNone, kNone},
        {"5", "5803", "Valiutos kurso pokyčio pelnas", "K", "536", kNone, kNone},
        {"", "6", "Sąnaudos", "D", "", kNone, kNone},
        {"6", "6000", "Parduotų prekių savikaina", "D", "", kNone, kNone},
        {"6", "6100", "Veiklos sąnaudos", "D", "", kNone, kNone},
        {"6", "6803", "Valiutos kurso pokyčio nuostoliai", "D", "636", kNone, kNone},
    };
    return list;
}

void addDemands(const RecordsetPtr& rs, const QVector<Demand>& demands) {
    for (const Demand& d : demands) {
        rs->AddNew();
        rs->SetField(QStringLiteral("Sign"), Value(qint32(d.sign)));
        rs->SetField(QStringLiteral("FOID"), QString::fromLatin1(d.foid));
        rs->Update();
    }
}

ResultRecord fill(Database& db) {
    const QueryResult count = db.Query(QStringLiteral("SELECT COUNT(*) FROM Accounts"));
    if (!count.ok())
        return ResultRecord::Failure(count.Code, count.Text);
    if (count.Scalar().toInt32() > 0)
        return ResultRecord::Failure(
            codes::Refused, QStringLiteral("Sąskaitų planas jau užpildytas: pavyzdinis planas "
                                           "nekuriamas."));
    const QueryResult roles = db.Query(QStringLiteral("SELECT Code, ID FROM BRASettings"));
    if (!roles.ok())
        return ResultRecord::Failure(roles.Code, roles.Text);
    QHash<QString, qint64> roleIds;
    for (int i = 0; i < roles.RowCount(); ++i)
        roleIds.insert(roles.At(i, 0).toString(), RecordId(roles.At(i, 1)));

    QHash<QString, qint64> ids;
    for (const DemoAccount& a : chart()) {
        QString error;
        const RecordsetPtr rs = BlankAccountRecord(db, &error);
        if (!rs)
            return ResultRecord::Failure(bo_codes::MethodFailed, error);
        rs->MoveFirst();
        const QString parent = QString::fromLatin1(a.parent);
        if (!parent.isEmpty())
            rs->SetField(QStringLiteral("ParentID"), Value(double(ids.value(parent))));
        rs->SetField(QStringLiteral("Account"), QString::fromLatin1(a.account));
        rs->SetField(QStringLiteral("Name"), QString::fromUtf8(a.name));
        rs->SetField(QStringLiteral("Type"), QString::fromLatin1(a.type));
        const QString role = QString::fromLatin1(a.role);
        if (!role.isEmpty()) {
            if (!roleIds.contains(role))
                return ResultRecord::Failure(
                    codes::Refused,
                    QStringLiteral("Knygoje nėra sąskaitos atitikimo %1.").arg(role));
            rs->SetField(QStringLiteral("BRAPropertyID"), Value(double(roleIds.value(role))));
        }
        addDemands(rs->Field(QStringLiteral("BRRequiredAddr")).toRecordset(), a.required);
        addDemands(rs->Field(QStringLiteral("EnabledAddressee")).toRecordset(), a.allowed);
        rs->Update();
        const BOResult saved = SaveAccountRecord(db, 0, rs);
        if (!saved.ok())
            return ResultRecord::Failure(
                saved.Code,
                QStringLiteral("Sąskaita %1: %2").arg(QString::fromLatin1(a.account), saved.Text));
        ids.insert(QString::fromLatin1(a.account), RecordId(rs->Field(QStringLiteral("ID"))));
    }
    return ResultRecord::Success();
}

} // namespace

ResultRecord CreateDemoChart(Database& db) {
    const ResultRecord begun = db.Begin();
    if (!begun.ok())
        return begun;
    const ResultRecord r = fill(db);
    if (!r.ok()) {
        db.Rollback();
        return r;
    }
    return db.Commit();
}

} // namespace orvo::host
