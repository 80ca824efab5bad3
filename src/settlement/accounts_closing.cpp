#include "settlement/accounts_closing.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "core/today.h"
#include "frame/catalogue.h"
#include "frame/messages.h"
#include "operations/operation_editor.h"

namespace orvo {

namespace {

const QString kGroupCode = QStringLiteral("O0201400");
const QString kClosingKind = QStringLiteral("O0201506");

QString orDefault(const QStringList& chart, const char* account) {
    const QString a = QString::fromLatin1(account);
    return chart.contains(a) ? a : QString();
}

// A row belongs to a class when it begins with the class prefix and not with the
// prefix left out (an empty one leaves nothing out).
bool inClass(const QString& account, const QString& prefix, const QString& excluded) {
    if (prefix.isEmpty() || !account.startsWith(prefix))
        return false;
    return excluded.isEmpty() || !account.startsWith(excluded);
}

} // namespace

QString AccountsClosing::Choices::Join() const {
    return QStringList{Acc5, Acc59, Acc6, Acc69, Acc39, Profit, Loss}.join(QLatin1Char('#'));
}

AccountsClosing::Choices AccountsClosing::Choices::Split(const QString& parameters) {
    const QStringList parts = parameters.split(QLatin1Char('#'));
    auto at = [&parts](int i) { return i < parts.size() ? parts.at(i).trimmed() : QString(); };
    Choices c;
    c.Acc5 = at(0);
    c.Acc59 = at(1);
    c.Acc6 = at(2);
    c.Acc69 = at(3);
    c.Acc39 = at(4);
    c.Profit = at(5);
    c.Loss = at(6);
    return c;
}

AccountsClosing::Choices AccountsClosing::Choices::Defaults(const QStringList& chart) {
    Choices c;
    c.Acc5 = orDefault(chart, "5");
    c.Acc59 = orDefault(chart, "59");
    c.Acc6 = orDefault(chart, "6");
    c.Acc69 = orDefault(chart, "69");
    c.Acc39 = orDefault(chart, "391");
    c.Profit = orDefault(chart, "340");
    c.Loss = orDefault(chart, "341");
    return c;
}

AccountsClosing::AccountsClosing(OrvoObjectUIOPtr operation) : op_(std::move(operation)) {}

QStringList AccountsClosing::EntryHeaders() {
    return {QStringLiteral("Debeto b/s"), QStringLiteral("Kredito b/s"),
            QStringLiteral("Suma, Lt"),   QStringLiteral("Valiuta D"),
            QStringLiteral("Valiuta K"),  QStringLiteral("Apmokamos operacijos")};
}

RecordsetPtr AccountsClosing::entries() const {
    return op_ ? op_->Field(QStringLiteral("BR")).toRecordset() : nullptr;
}

bool AccountsClosing::IsNew() const {
    return !op_ || op_->OIDR().size() < 9;
}

QString AccountsClosing::BaseCurrency() const {
    return Catalogue::GetBaseCurrency().toString().trimmed();
}

void AccountsClosing::Load() {
    Accounts.clear();
    if (const DictionaryPtr chart = Catalogue::AccountList(op_))
        Accounts = chart->Keys();
    const QString stored = NzString(op_->Field(QStringLiteral("Parameters")));
    Parameters = stored.isEmpty() ? Choices::Defaults(Accounts) : Choices::Split(stored);
    const qint32 group = NzLong(op_->Field(QStringLiteral("BROperGroupID")));
    Rights = Catalogue::RightsFor(QStringLiteral("CBROperRights") +
                                  (group > 0 ? QString::number(group) : QString()));
    GroupRef = group > 0 ? kGroupCode + QString::number(group) : QString();
    loadGroup();
    loadHeader();
    PaintEntries();
    setTotals();
    Changed = false;
}

void AccountsClosing::loadGroup() {
    GroupText.clear();
    Serija.clear();
    SeriesIndication = 0;
    Mask.clear();
    if (GroupRef.size() < 9)
        return;
    const ValueResult answer = op_->Properties(
        QStringLiteral("Parent"), QStringLiteral("'") + GroupRef + QStringLiteral("'"));
    const RecordsetPtr group = answer.ok() ? answer.Value.toRecordset() : nullptr;
    if (!group || group->RecordCount() == 0)
        return;
    group->MoveFirst();
    if (NzString(group->Field(QStringLiteral("FormOID"))) != op_->OType()) {
        ShowWarning(QStringLiteral("Grupės tipas neatitinka operacijos tipo!"));
        GroupRef.clear();
        return;
    }
    GroupText = NzString(group->Field(QStringLiteral("Preview")));
    if (GroupText.isEmpty())
        GroupText = NzString(group->Field(QStringLiteral("Name")));
    const QString oidr = NzString(group->Field(QStringLiteral("OIDR")));
    if (oidr.size() >= 9)
        GroupRef = oidr;
    Serija = NzString(group->Field(QStringLiteral("Serija")));
    SeriesIndication = NzInt(group->Field(QStringLiteral("SerijaIndication")));
    Mask = NzString(group->Field(QStringLiteral("ANMask")));
}

void AccountsClosing::loadHeader() {
    if (IsNew()) {
        Date = QDate(Today().year() - 1, 12, 31);
        Number.clear();
        RefreshAutoNumber();
        Title = QStringLiteral("Nauja operacija");
        return;
    }
    Serija = NzString(op_->Field(QStringLiteral("Serija")));
    Number = NzString(op_->Field(QStringLiteral("Number")));
    Date = NzDate(op_->Field(QStringLiteral("DateD")), QDate(Today().year() - 1, 12, 31));
    Title = Serija + Number + QStringLiteral("  Sąskaitų uždarymas");
}

bool AccountsClosing::ChangeGroup(const QString& reference) {
    if (reference.size() < 9)
        return false;
    GroupRef = reference;
    loadGroup();
    if (GroupRef.isEmpty())
        return false;
    op_->SetField(QStringLiteral("BROperGroupID"), Value(GroupRef.mid(8).toInt()));
    RefreshAutoNumber();
    Changed = true;
    return true;
}

void AccountsClosing::RefreshAutoNumber() {
    if (IsNew() && !Mask.isEmpty())
        Number = op_->Methods(QStringLiteral("GetAutoNumber"), {}).Value.toString();
}

void AccountsClosing::setTotals() {
    const QString code = BaseCurrency();
    Total5Text = FormatNumberLt(Total5, 2) + QLatin1Char(' ') + code;
    Total6Text = FormatNumberLt(Total6, 2) + QLatin1Char(' ') + code;
}

bool AccountsClosing::Fill() {
    Status = QStringLiteral("Vyksta duomenų paruošimas ...");
    const ValueResult answer =
        op_->Properties(QStringLiteral("AccountsTotal"),
                        QStringLiteral("'") + DateParam(Date) + QStringLiteral("',''"));
    if (!answer.ok()) {
        Status.clear();
        return false;
    }
    if (const RecordsetPtr br = entries(); br && br->RecordCount() > 0)
        op_->Methods(QStringLiteral("DeleteBR"), {Value(QString())});
    Total5Text.clear();
    Total6Text.clear();
    const bool made = Generate(answer.Value.toRecordset());
    PaintEntries();
    Changed = true;
    Status.clear();
    return made;
}

bool AccountsClosing::createBR(double sum, const QString& debit, const QString& credit) {
    const ValueResult r = op_->Methods(QStringLiteral("CreateBR"),
                                       {Value(Date), Value(sum), Value(debit), Value(credit)});
    return r.ok();
}

bool AccountsClosing::Generate(const RecordsetPtr& totals) {
    Total5 = 0;
    Total6 = 0;
    const Choices& c = Parameters;
    if (!totals || totals->RecordCount() == 0 || c.Acc5.isEmpty() || c.Acc6.isEmpty() ||
        c.Acc39.isEmpty()) {
        setTotals();
        return true;
    }
    bool ok = true;
    for (totals->MoveFirst(); ok && !totals->Eof(); totals->MoveNext()) {
        const QString account = NzString(totals->Field(QStringLiteral("Account"))).trimmed();
        const double sum = NzDouble(totals->Field(QStringLiteral("SumA")));
        const bool credit =
            NzString(totals->Field(QStringLiteral("AccType"))) == QLatin1String("K");
        if (account.startsWith(c.Acc5)) {
            if (!inClass(account, c.Acc5, c.Acc59) || sum == 0)
                continue;
            if (credit) {
                Total5 += sum;
                ok = createBR(sum, account, c.Acc39);
            } else {
                Total5 -= sum;
                ok = createBR(sum, c.Acc39, account);
            }
        } else if (account.startsWith(c.Acc6)) {
            if (!inClass(account, c.Acc6, c.Acc69) || sum == 0)
                continue;
            if (credit) {
                Total6 -= sum;
                ok = createBR(sum, account, c.Acc39);
            } else {
                Total6 += sum;
                ok = createBR(sum, c.Acc39, account);
            }
        }
    }
    if (ok) {
        if (Total5 > Total6 && !c.Profit.isEmpty())
            ok = createBR(Round(Total5 - Total6, 2), c.Acc39, c.Profit);
        else if (Total6 > Total5 && !c.Loss.isEmpty())
            ok = createBR(Round(Total6 - Total5, 2), c.Loss, c.Acc39);
    }
    setTotals();
    return ok;
}

void AccountsClosing::PaintEntries() {
    Rows.clear();
    // The operation editor paints an entry's row once for every window of operations;
    // the closing's list is the same row without the date.
    OperationEditor painter(op_);
    painter.Date = Date;
    painter.PaintEntries();
    for (const OperationEditor::EntryRow& row : painter.Rows)
        Rows.append({row.GUID, row.Cells.mid(1)});
}

bool AccountsClosing::Write() {
    const RecordsetPtr br = entries();
    if (!br || br->RecordCount() == 0) {
        ShowWarning(QStringLiteral("Neparuošti operacijos įrašai!"));
        return false;
    }
    const Value oldDate = op_->Field(QStringLiteral("DateD"));
    const Value oldNumber = op_->Field(QStringLiteral("Number"));
    if (NzString(op_->Field(QStringLiteral("FOIDR"))).isEmpty())
        op_->SetField(QStringLiteral("FOIDR"), Value(op_->OType()));
    if (GroupRef.size() > 8)
        op_->SetField(QStringLiteral("BROperGroupID"), Value(GroupRef.mid(8).toInt()));
    op_->SetField(QStringLiteral("DateD"), Value(Date));
    op_->SetField(QStringLiteral("Serija"), Value(Serija));
    op_->SetField(QStringLiteral("Number"), Value(Number));
    op_->SetField(QStringLiteral("Comment"), Value(CommentText()));
    op_->SetField(QStringLiteral("Parameters"), Value(Parameters.Join()));
    if (!IsNew())
        op_->SetField(QStringLiteral("LockGUID"), op_->Field(QStringLiteral("LockGUID")));
    op_->Methods(QStringLiteral("SaveAutoNumber"), {Value(Mask), Value(Number)});
    const ResultRecord saved = op_->Save();
    if (!saved.ok()) {
        ShowError(QStringLiteral("Įrašymas neatliktas !\n") + saved.Text);
        op_->SetField(QStringLiteral("DateD"), oldDate);
        op_->SetField(QStringLiteral("Number"), oldNumber);
        return false;
    }
    op_->SetPreview(DateParam(Date) + QLatin1Char(' ') + Number);
    loadHeader();
    PaintEntries();
    Changed = false;
    return true;
}

void AccountsClosing::NewClosing() {
    const Value group = op_->Field(QStringLiteral("BROperGroupID"));
    op_->SetOIDR(QString());
    const ResultRecord read = op_->Read();
    if (!read.ok()) {
        ShowError(read.Text);
        return;
    }
    op_->SetField(QStringLiteral("BROperGroupID"), group);
    op_->SetField(QStringLiteral("FOIDR"), Value(op_->OType()));
    Total5 = 0;
    Total6 = 0;
    Parameters = Choices::Defaults(Accounts);
    loadHeader();
    PaintEntries();
    setTotals();
    Changed = false;
}

void AccountsClosing::OpenEntry(const QString& guid) {
    if (guid.isEmpty())
        return;
    const ValueResult shown =
        op_->Methods(QStringLiteral("ShowBR"),
                     {Value(guid), Value(Rights.Edit == 0), Value(true), Value(qint16(0))});
    if (shown.ok() && NzInt(shown.Value) != 0)
        Changed = true;
    PaintEntries();
}

bool AccountsClosing::DeleteEntries(const QStringList& guids) {
    if (guids.isEmpty() || !AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
        return false;
    for (const QString& guid : guids)
        op_->Methods(QStringLiteral("DeleteBR"), {Value(guid), Value(qint16(9))});
    PaintEntries();
    Changed = true;
    return true;
}

bool AccountsClosing::DeleteAll() {
    if (Rows.isEmpty() || !AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
        return false;
    op_->Methods(QStringLiteral("DeleteBR"), {Value(QString())});
    PaintEntries();
    Changed = true;
    return true;
}

QVector<AccountsClosing::PrintLine> AccountsClosing::PrintLines() const {
    QVector<PrintLine> lines;
    const RecordsetPtr br = entries();
    if (!br)
        return lines;
    br->SetFilter(QString());
    int code = 0;
    for (br->MoveFirst(); !br->Eof(); br->MoveNext()) {
        PrintLine line;
        line.Code = QString::number(++code);
        line.Debit = NzString(br->Field(QStringLiteral("AccountD")));
        line.Credit = NzString(br->Field(QStringLiteral("AccountC")));
        line.SumA = NzDouble(br->Field(QStringLiteral("SumA")));
        line.Name = Catalogue::AccountName(op_, line.Debit) + QStringLiteral(" / ") +
                    Catalogue::AccountName(op_, line.Credit);
        lines.append(line);
    }
    return lines;
}

} // namespace orvo
