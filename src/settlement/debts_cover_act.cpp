#include "settlement/debts_cover_act.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "frame/orvo_constants_service.h"
#include "frame/orvo_object_uio.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "settlement/debts_cover.h"

#include <cmath>

namespace orvo {

namespace {

QString amount(double value) {
    return FormatNumberLt(value + BaseSumAddend, 2);
}

// The document number of a row, from the debt rows the list was filled with.
QString numberOf(const DebtsCoverList& list, const QString& key) {
    const RecordsetPtr rs = list.Recordset();
    if (!rs)
        return QString();
    const qint64 mark = rs->Bookmark();
    QString number;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        if (NzString(rs->Field(QStringLiteral("OIDR"))) == key) {
            number = NzString(rs->Field(QStringLiteral("Number")));
            break;
        }
    rs->SetBookmark(mark);
    return number;
}

DebtsCoverActParty partyOf(const RecordsetPtr& rs) {
    DebtsCoverActParty p;
    if (!rs || rs->RecordCount() == 0)
        return p;
    rs->MoveFirst();
    p.Name = NzString(rs->Field(QStringLiteral("Name")));
    p.Code = NzString(rs->Field(QStringLiteral("Code")));
    p.Phone = NzString(rs->Field(QStringLiteral("Phone")));
    p.Fax = NzString(rs->Field(QStringLiteral("Fax")));
    return p;
}

} // namespace

QString DebtsCoverActParty::CodeLine() const {
    QString line = QStringLiteral("Įmonės kodas: ") + Code;
    if (!Phone.isEmpty())
        line += QStringLiteral(", tel. ") + Phone;
    if (!Fax.isEmpty())
        line += QStringLiteral(", faks. ") + Fax;
    return line;
}

DebtsCoverActParty DebtsCoverAct::OwnFirm() {
    const OrvoServicesPtr services = OrvoS();
    const OrvoConstantsServicePtr constants = services ? services->Constants() : nullptr;
    return partyOf(constants ? constants->MyFirm() : nullptr);
}

DebtsCoverActParty DebtsCoverAct::FirmOf(const QString& reference) {
    const OrvoServicesPtr services = OrvoS();
    const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
    const OrvoObjectUIOPtr firm =
        objects && reference.size() > 8 ? objects->GetObjectUIO(reference) : nullptr;
    return partyOf(firm ? firm->RsFields() : nullptr);
}

DebtsCoverAct DebtsCoverAct::Make(const DebtsCover& cover, const DebtsCoverActParty& myFirm,
                                  const DebtsCoverActParty& client) {
    DebtsCoverAct act;
    act.MyFirm = myFirm;
    act.Client = client;
    act.Title = QStringLiteral("TARPUSAVIO SKOLŲ UŽSKAITYMO AKTAS");
    act.Date = cover.coverDate;
    act.DateInWords = FormatLongDate(QString(), cover.coverDate);
    act.Statement = QStringLiteral("Mes, žemiau pasirašiusieji ") + myFirm.Name +
                    QStringLiteral(" ir ") + client.Name +
                    QStringLiteral(" atstovai, sudarėme šį tarpusavio užskaitymo aktą:");
    // Debit debts are the client's to the firm, credit debts the firm's to the client.
    act.Header = {QStringLiteral("Dokumento numeris"), QStringLiteral("Data"),
                  client.Name + QStringLiteral("\nskolos"),
                  myFirm.Name + QStringLiteral("\nskolos")};

    double balanceDebit = 0;
    double balanceCredit = 0;
    const auto addRows = [&](const DebtsCoverList& list, bool onDebit, bool withRest) {
        for (const DebtsCoverRow& row : list.Rows()) {
            if (!row.Checked)
                continue;
            DebtsCoverActRow r;
            r.DocNumber = numberOf(list, row.Key);
            r.DocDate = row.DateText();
            (onDebit ? r.Debit : r.Credit) = amount(row.PaymentLt);
            (onDebit ? act.TotalDebit : act.TotalCredit) += row.PaymentLt;
            (onDebit ? balanceDebit : balanceCredit) +=
                row.PaymentLt + (withRest ? row.LikutisLt : 0);
            act.Rows.append(r);
        }
    };
    addRows(cover.primary, cover.primaryDebit, false);
    addRows(cover.secondary, !cover.primaryDebit, true);
    act.TotalDebit = Round(act.TotalDebit, 2);
    act.TotalCredit = Round(act.TotalCredit, 2);
    act.Rows.append({QStringLiteral("Viso:"), QString(), amount(act.TotalDebit),
                     amount(act.TotalCredit), true});
    const double difference = Round(balanceDebit - balanceCredit, 2);
    if (difference != 0) {
        DebtsCoverActRow r;
        r.DocNumber = QStringLiteral("Skolos likutis datai ") + DateParam(act.Date) +
                      QStringLiteral(" po tarpusavio užskaitymų:");
        (difference > 0 ? r.Debit : r.Credit) = amount(std::abs(difference));
        r.Bold = true;
        act.Rows.append(r);
    }
    act.Request = QStringLiteral("Prašome vieną pasirašytą egzempliorių grąžinti.");
    return act;
}

QStringList DebtsCoverAct::Lines() const {
    QStringList lines = {MyFirm.Name, MyFirm.CodeLine(), Underline(100),
                         Client.Name, Client.CodeLine(), Underline(100),
                         Title,       DateInWords,       Statement};
    lines.append(Header.join(QLatin1Char(' ')));
    for (const DebtsCoverActRow& r : Rows)
        lines.append(QStringList({r.DocNumber, r.DocDate, r.Debit, r.Credit}).join(' ').trimmed());
    lines.append(Request);
    for (const DebtsCoverActParty* p : {&MyFirm, &Client})
        lines << p->Name << QString()
              << Underline(48) + QStringLiteral("                     A.V.");
    return lines;
}

} // namespace orvo
