// The fixture of the template tests on the host side: a session on a new book on each
// backend (see accounts_fixture.h), and short ways to store and read templates and
// template groups through the business object's methods, as the data object does.
#pragma once

#include "accounts_fixture.h"

#include <tuple>

namespace orvo::host::testing {

// One entry of a template as the tests write it, with the addressees it demands:
// (Sign, FOID, FOIDR) triples.
struct TemplateLine {
    using Addressee = std::tuple<int, QString, QString>;
    TemplateLine(const QString& d, const QString& c, const Value& f,
                 const QVector<Addressee>& a = {})
        : AccountD(d), AccountC(c), Factor(f), Addressees(a) {}
    QString AccountD;
    QString AccountC;
    Value Factor;
    QVector<Addressee> Addressees;
};

class TemplatesTest : public AccountsTest {
protected:
    RecordsetPtr BlankTemplate() {
        const BOResult r =
            Call(QStringLiteral("DO0201600_GetOrvoObject"), QStringLiteral("'O0201600'"));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return r.Data.toRecordset();
    }

    RecordsetPtr ReadTemplate(qint64 id) {
        const BOResult r =
            Call(QStringLiteral("DO0201600_GetOrvoObject"), QStringLiteral("'O0201600%1'").arg(id));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return r.Data.toRecordset();
    }

    BOResult SaveTemplate(const RecordsetPtr& rs, qint64 id = 0) {
        return Call(QStringLiteral("DO0201600_SaveOrvoObject"),
                    id > 0 ? QStringLiteral("'O0201600%1'").arg(id) : QStringLiteral("''"),
                    Value(rs));
    }

    static qint64 IdOf(const BOResult& r) {
        const RecordsetPtr out = r.Data.toRecordset();
        if (!out || out->RecordCount() == 0)
            return 0;
        out->MoveFirst();
        return static_cast<qint64>(out->Field(QStringLiteral("ID")).toDouble());
    }

    // Adds the lines to the record's nested recordsets, each entry with a GUID of its own.
    static void AddLines(const RecordsetPtr& rs, const QVector<TemplateLine>& lines) {
        const RecordsetPtr acc = rs->Field(QStringLiteral("BRTemplateAcc")).toRecordset();
        const RecordsetPtr addr = rs->Field(QStringLiteral("BRTemplateAddr")).toRecordset();
        int n = 0;
        for (const TemplateLine& line : lines) {
            const QString guid =
                QStringLiteral("{00000000-0000-0000-0000-%1}").arg(++n, 12, 10, QLatin1Char('0'));
            acc->AddNew();
            acc->SetField(QStringLiteral("GUID"), guid);
            acc->SetField(QStringLiteral("AccountD"), line.AccountD);
            acc->SetField(QStringLiteral("AccountC"), line.AccountC);
            acc->SetField(QStringLiteral("Factor"), line.Factor);
            acc->Update();
            for (const auto& [sign, foid, foidr] : line.Addressees) {
                addr->AddNew();
                addr->SetField(QStringLiteral("BRTemplateAccGUID"), guid);
                addr->SetField(QStringLiteral("Sign"), Value(qint16(sign)));
                addr->SetField(QStringLiteral("FOID"), foid);
                if (!foidr.isEmpty())
                    addr->SetField(QStringLiteral("FOIDR"), foidr);
                addr->Update();
            }
        }
    }

    // Stores a new group or template that must be accepted; its ID.
    qint64 AddRecord(qint64 parentId, const QString& name, bool group,
                     const QVector<TemplateLine>& lines = {}) {
        RecordsetPtr rs = BlankTemplate();
        if (!rs)
            return 0;
        rs->MoveFirst();
        if (parentId > 0)
            rs->SetField(QStringLiteral("ParentID"), Value(double(parentId)));
        rs->SetField(QStringLiteral("Name"), name);
        rs->SetField(QStringLiteral("GroupFlag"), Value(group));
        rs->Update();
        AddLines(rs, lines);
        const BOResult r = SaveTemplate(rs);
        EXPECT_TRUE(r.ok()) << name.toStdString() << ": " << r.Text.toStdString();
        return IdOf(r);
    }
    qint64 AddGroup(qint64 parentId, const QString& name) {
        return AddRecord(parentId, name, true);
    }
    qint64 AddTemplate(qint64 parentId, const QString& name, const QVector<TemplateLine>& lines) {
        return AddRecord(parentId, name, false, lines);
    }

    // A firm of the catalogue; its OIDR.
    QString AddFirm(const QString& name) {
        const QueryResult q = session_->Db().Query(
            QStringLiteral("INSERT INTO Firms (Name) VALUES (?) RETURNING ID"), {Value(name)});
        EXPECT_TRUE(q.ok()) << q.Text.toStdString();
        return QStringLiteral("O0000100%1").arg(static_cast<qint64>(q.Scalar().toDouble()));
    }

    qint64 Count(const QString& sql, const ValueArray& params = {}) {
        const QueryResult q = session_->Db().Query(sql, params);
        EXPECT_TRUE(q.ok()) << q.Text.toStdString();
        return q.ok() ? static_cast<qint64>(q.Scalar().toDouble()) : -1;
    }
};

} // namespace orvo::host::testing
