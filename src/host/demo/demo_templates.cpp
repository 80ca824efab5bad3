#include "host/demo/demo_templates.h"

#include "core/recordset.h"
#include "host/objects/object_store.h"
#include "host/objects/template_kind.h"

#include <QUuid>

namespace orvo::host {

namespace {

struct Line {
    const char* debit;
    const char* credit;
    double factor;
    // The side (1 debit, -1 credit) on which the line demands a firm; 0 for none.
    int firmSide;
};

struct DemoTemplate {
    const char* name;
    const char* comment;
    QVector<Line> lines;
};

const char* const kFirm = "O0000100";

QString newGuid() {
    return QUuid::createUuid().toString().toUpper();
}

ResultRecord failed(const QString& what, const QString& why) {
    return ResultRecord::Failure(
        1, QStringLiteral("Nepavyko įrašyti demonstracinio šablono „%1“: %2").arg(what, why));
}

// Saves one record of the kind; its new number in `id`.
ResultRecord save(Database& db, qint64 parentId, bool group, const QString& name,
                  const QString& comment, const QVector<Line>& lines, qint64* id) {
    const ObjectKind kind = TemplateKind();
    ObjectStore store(db);
    const BOResult blank = store.ReadBlank(kind);
    const RecordsetPtr rs = blank.ok() ? blank.Data.toRecordset() : nullptr;
    if (!rs)
        return failed(name, blank.Text);
    rs->MoveFirst();
    if (parentId > 0)
        rs->SetField(QStringLiteral("ParentID"), Value(double(parentId)));
    rs->SetField(QStringLiteral("GroupFlag"), Value(qint16(group ? 1 : 0)));
    rs->SetField(QStringLiteral("Name"), name);
    if (!comment.isEmpty())
        rs->SetField(QStringLiteral("Comment"), comment);
    const RecordsetPtr acc = rs->Field(QStringLiteral("BRTemplateAcc")).toRecordset();
    const RecordsetPtr addr = rs->Field(QStringLiteral("BRTemplateAddr")).toRecordset();
    for (const Line& l : lines) {
        const QString guid = newGuid();
        acc->AddNew();
        acc->SetField(QStringLiteral("GUID"), guid);
        acc->SetField(QStringLiteral("AccountD"), QString::fromLatin1(l.debit));
        acc->SetField(QStringLiteral("AccountC"), QString::fromLatin1(l.credit));
        acc->SetField(QStringLiteral("Factor"), Value(l.factor));
        acc->Update();
        if (l.firmSide != 0) {
            addr->AddNew();
            addr->SetField(QStringLiteral("BRTemplateAccGUID"), guid);
            addr->SetField(QStringLiteral("FOID"), QString::fromLatin1(kFirm));
            addr->SetField(QStringLiteral("Sign"), Value(qint32(l.firmSide)));
            addr->Update();
        }
    }
    rs->Update();
    const BOResult saved = store.Save(kind, 0, rs);
    if (!saved.ok())
        return failed(name, saved.Text);
    *id = static_cast<qint64>(rs->Field(QStringLiteral("ID")).toDouble());
    return *id > 0 ? ResultRecord::Success() : failed(name, QStringLiteral("negautas numeris"));
}

} // namespace

ResultRecord CreateDemoTemplates(Database& db, DemoTemplateIds* ids) {
    DemoTemplateIds made;
    ResultRecord r =
        save(db, 0, true, QStringLiteral("Pagrindiniai šablonai"), QString(), {}, &made.MainGroup);
    if (!r.ok())
        return r;
    r = save(db, 0, true, QStringLiteral("Kasos operacijos"), QString(), {}, &made.CashGroup);
    if (!r.ok())
        return r;

    const QVector<DemoTemplate> main = {
        {"Prekių pardavimas su PVM",
         "Prekių pardavimas",
         {{"2410", "5000", 1.0, 1}, {"2410", "4492", 0.21, 1}}},
        {"Prekių pirkimas su PVM",
         "Prekių pirkimas",
         {{"2040", "4430", 1.0, -1}, {"2441", "4430", 0.21, -1}}},
        {"Pirkėjo apmokėjimas į banką", "Pirkėjo apmokėjimas", {{"2711", "2410", 1.0, -1}}},
        {"Apmokėjimas tiekėjui iš banko", "Apmokėjimas tiekėjui", {{"4430", "2711", 1.0, 1}}},
        {"Pradiniai likučiai banke", "Pradiniai likučiai", {{"2711", "0", 1.0, 0}}},
    };
    for (const DemoTemplate& t : main) {
        qint64 id = 0;
        r = save(db, made.MainGroup, false, QString::fromUtf8(t.name), QString::fromUtf8(t.comment),
                 t.lines, &id);
        if (!r.ok())
            return r;
        if (made.Sale == 0)
            made.Sale = id;
    }
    const QVector<DemoTemplate> cash = {
        {"Grynųjų įnešimas į banką", "Grynieji įnešti į banką", {{"2711", "2720", 1.0, 0}}},
        {"Grynųjų paėmimas iš banko", "Grynieji paimti iš banko", {{"2720", "2711", 1.0, 0}}},
    };
    for (const DemoTemplate& t : cash) {
        qint64 id = 0;
        r = save(db, made.CashGroup, false, QString::fromUtf8(t.name), QString::fromUtf8(t.comment),
                 t.lines, &id);
        if (!r.ok())
            return r;
    }
    if (ids)
        *ids = made;
    return ResultRecord::Success();
}

} // namespace orvo::host
