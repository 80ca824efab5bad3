#include "settlement/deferred_covers.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/rounding.h"
#include "core/today.h"
#include "frame/catalogue.h"
#include "frame/messages.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_settings_service.h"

namespace orvo {

namespace {

const QString kOperation = QStringLiteral("O0201500");
const QString kGroup = QStringLiteral("O0201400");

OrvoObjectsServicePtr objects() {
    const OrvoServicesPtr s = OrvoS();
    return s ? s->ObjectsService() : nullptr;
}

OrvoSettingsServicePtr settings() {
    const OrvoServicesPtr s = OrvoS();
    return s ? s->SettingsService() : nullptr;
}

QString quoted(const QString& text) {
    return QStringLiteral("'") + text + QStringLiteral("'");
}

QString dateText(const QDate& date) {
    return date.isValid() ? date.toString(QStringLiteral("yyyy.MM.dd")) : QString();
}

QString field(const RecordsetPtr& rs, const char* name) {
    return NzString(rs->Field(QString::fromLatin1(name)));
}

} // namespace

DeferredCovers::DeferredCovers(OrvoObjectUIOPtr operation) : op_(std::move(operation)) {}

QString DeferredCovers::Title() const {
    return ByDebit ? QStringLiteral(" Sąnaudų nurašymas") : QStringLiteral(" Pajamų užskaitymas");
}

QString DeferredCovers::OnlyNotCoveredCaption() const {
    return ByDebit ? QStringLiteral("Rodyti tik nenurašytas")
                   : QStringLiteral("Rodyti tik neužskaitytas");
}

QString DeferredCovers::RelatedCaption() const {
    return ByDebit ? QStringLiteral("Nurašymo operacija") : QStringLiteral("Užskaitymo operacija");
}

QStringList DeferredCovers::ColumnCaptions() {
    return {QStringLiteral("Data"),
            QStringLiteral("Nr."),
            QStringLiteral("Suma"),
            QStringLiteral("Nuo datos"),
            QStringLiteral("Mėnesių skaičius"),
            QStringLiteral("Komentaras"),
            QStringLiteral("Dengimo operacija"),
            QStringLiteral("Įrašo data"),
            QStringLiteral("Įrašo suma"),
            QStringLiteral("Debeto b/s"),
            QStringLiteral("Kredito b/s")};
}

QStringList DeferredCovers::ColumnKeys() {
    return {
        QStringLiteral("DateD"),         QStringLiteral("Number"),     QStringLiteral("SumA"),
        QStringLiteral("MonthFrom"),     QStringLiteral("MonthCount"), QStringLiteral("Comment"),
        QStringLiteral("RelatedBROper"), QStringLiteral("BRDate"),     QStringLiteral("BRSumA"),
        QStringLiteral("AccountD"),      QStringLiteral("AccountC")};
}

void DeferredCovers::Load() {
    GroupID = op_ ? NzLong(op_->Field(QStringLiteral("BROperGroupID"))) : 0;
    Rights = Catalogue::RightsFor(QStringLiteral("CBROperRights") +
                                  (GroupID > 0 ? QString::number(GroupID) : QString()));
    accounts_.clear();
    if (const DictionaryPtr chart = Catalogue::AccountList(op_))
        accounts_ = chart->Keys();

    const QDate today = Today();
    Date1 = QDate(today.year(), 1, 1);
    Date2 = today;
    OperDate = today;
    DateFrom = FirstOfMonth(today);
    if (const OrvoSettingsServicePtr s = settings()) {
        const QString section = SettingsSection();
        Account = s->GetSetting(section, QStringLiteral("SubscriptionAccount"));
        CoverAccount = s->GetSetting(section, QStringLiteral("SubscriptionCoverAccount"));
        Comment = s->GetSetting(section, QStringLiteral("SubscriptionCoverComment"));
        ByDebit = s->GetSetting(section, QStringLiteral("SubscriptionByDebit"),
                                QStringLiteral("1")) != QLatin1String("0");
        AddresseeOIDR = s->GetSetting(section, QStringLiteral("SubscriptionAddrOIDR"));
        DetailView =
            s->GetSetting(section, QStringLiteral("SubscriptionDetails")) == QLatin1String("1");
    }
    AddresseeText.clear();
    if (AddresseeOIDR.size() > 8) {
        const OrvoObjectsServicePtr o = objects();
        const OrvoObjectUIOPtr addressee = o ? o->GetObjectUIO(AddresseeOIDR) : nullptr;
        AddresseeText = addressee ? addressee->Preview() : QString();
        if (AddresseeText.isEmpty())
            AddresseeText = AddresseeOIDR;
    }

    GroupText.clear();
    Mask.clear();
    if (GroupID > 0) {
        const ValueResult answer =
            op_->Properties(QStringLiteral("Parent"), quoted(kGroup + QString::number(GroupID)));
        const RecordsetPtr group = answer.ok() ? answer.Value.toRecordset() : nullptr;
        if (group && group->RecordCount() > 0) {
            group->MoveFirst();
            GroupText = field(group, "Preview");
            if (GroupText.isEmpty())
                GroupText = field(group, "Name");
            Mask = field(group, "ANMask");
            const qint32 id = NzLong(group->Field(QStringLiteral("ID")));
            if (id > 0)
                GroupID = id;
        }
    }
    Number = Mask.isEmpty() ? QString()
                            : op_->Methods(QStringLiteral("GetAutoNumber"), {}).Value.toString();
}

QString DeferredCovers::MonthText(const QDate& date) {
    return date.isValid() ? date.toString(QStringLiteral("yyyy.MM")) : QString();
}

QDate DeferredCovers::MonthDate(const QString& month) {
    return QDate::fromString(month.trimmed() + QStringLiteral(".01"), QStringLiteral("yyyy.MM.dd"));
}

QVector<double> DeferredCovers::MonthlySums(double sum, int months) {
    QVector<double> sums;
    if (months <= 0)
        return sums;
    const double monthly = Round(sum / months, 2);
    double earlier = 0;
    for (int i = 0; i < months - 1; ++i) {
        sums.append(monthly);
        earlier += monthly;
    }
    sums.append(Round(sum - earlier, 2));
    return sums;
}

bool DeferredCovers::Fill() {
    Rows.clear();
    const QString parameters = quoted(dateText(Date1)) + QLatin1Char(',') +
                               quoted(dateText(Date2)) + QLatin1Char(',') + quoted(Account) +
                               QLatin1Char(',') + QString::number(ByDebit ? 1 : 0) +
                               QLatin1Char(',') + QString::number(OnlyNotCovered ? 1 : 0);
    const ValueResult answer = op_->Properties(QStringLiteral("CoversInFuture"), parameters);
    if (!answer.ok())
        return false;
    const RecordsetPtr rs = answer.Value.toRecordset();
    double total = 0;
    QStringList keys;
    if (rs)
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            const QString key = field(rs, "OIDR");
            if (!keys.contains(key))
                keys.append(key);
        }
    for (const QString& key : keys) {
        bool first = true;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            if (field(rs, "OIDR") != key)
                continue;
            const QString related = field(rs, "RelatedOIDR");
            QDate relatedDate = NzDate(rs->Field(QStringLiteral("RelatedDateD")), QDate());
            const QString relatedText =
                related.isEmpty()
                    ? QString()
                    : dateText(relatedDate) + QStringLiteral(" Nr. ") + field(rs, "Nr");
            if (first) {
                Row row;
                row.Key = key;
                row.GUID = field(rs, "BRGUID");
                row.DateD = NzDate(rs->Field(QStringLiteral("DateD")), QDate());
                row.Number = field(rs, "Number");
                row.SumA = NzDouble(rs->Field(QStringLiteral("SumA")));
                row.MonthFrom = field(rs, "MonthFrom");
                const qint32 count = NzLong(rs->Field(QStringLiteral("MonthCount")));
                row.MonthCount = count > 0 ? QString::number(count) : QString();
                row.Comment = field(rs, "Comment");
                row.RelatedBROper = relatedText;
                row.RelatedOIDR = related;
                Rows.append(row);
                total += row.SumA;
                first = false;
            }
            if (DetailView && !related.isEmpty()) {
                Row cover;
                cover.RowKind = Row::Kind::Cover;
                cover.Key = key;
                cover.RelatedBROper = relatedText;
                cover.RelatedOIDR = related;
                cover.BRDate = NzDate(rs->Field(QStringLiteral("BRDate")), QDate());
                cover.BRSumA = NzDouble(rs->Field(QStringLiteral("BRSumA")));
                cover.AccountD = field(rs, "AccountD");
                cover.AccountC = field(rs, "AccountC");
                Rows.append(cover);
            }
        }
    }
    Row sum;
    sum.RowKind = Row::Kind::Total;
    sum.Number = QStringLiteral("Viso:");
    sum.SumA = Round(total, 2);
    Rows.append(sum);
    return true;
}

void DeferredCovers::SetPeriod(int row, const QString& monthFrom, const QString& monthCount) {
    if (row < 0 || row >= Rows.size() || Rows.at(row).RowKind != Row::Kind::Entry)
        return;
    Rows[row].MonthFrom = monthFrom;
    Rows[row].MonthCount = monthCount;
}

void DeferredCovers::FillPeriod() {
    for (Row& row : Rows)
        if (row.RowKind == Row::Kind::Entry && row.Checked) {
            row.MonthFrom = MonthText(DateFrom);
            row.MonthCount = MonthCount;
        }
}

void DeferredCovers::ToggleAll() {
    bool all = true;
    for (const Row& row : Rows)
        if (row.RowKind == Row::Kind::Entry && !row.Checked)
            all = false;
    for (Row& row : Rows)
        if (row.RowKind == Row::Kind::Entry)
            row.Checked = !all;
}

QString DeferredCovers::CheckRows() const {
    for (const Row& row : Rows) {
        if (row.RowKind != Row::Kind::Entry || !row.Checked)
            continue;
        const QString head = QStringLiteral(" Nr. ") + row.Number + QLatin1Char('\n');
        const QDate first = MonthDate(row.MonthFrom);
        if (!first.isValid() || row.MonthCount.trimmed().toInt() <= 0)
            return head + QStringLiteral("Nenurodytas laikotarpis!");
        if (OperDate > first)
            return head + QStringLiteral("Operacijos data negali būti didesnė dengimo datos!");
    }
    return QString();
}

bool DeferredCovers::Write() {
    Created.clear();
    const QString fault = CheckRows();
    if (!fault.isEmpty()) {
        ShowError(fault);
        return false;
    }
    QString number = Number;
    bool first = true;
    for (const Row& row : Rows) {
        if (row.RowKind != Row::Kind::Entry || !row.Checked)
            continue;
        if (!first)
            number = nextNumber();
        first = false;
        const QString failure = writeRow(row, number);
        if (!failure.isEmpty()) {
            ShowError(failure);
            return false;
        }
    }
    SaveSettings();
    if (!Created.isEmpty() && !Mask.isEmpty())
        Number = nextNumber();
    Fill();
    return true;
}

QString DeferredCovers::nextNumber() {
    return Mask.isEmpty() ? Number
                          : op_->Methods(QStringLiteral("GetAutoNumber"), {}).Value.toString();
}

QString DeferredCovers::writeRow(const Row& row, const QString& number) {
    const OrvoObjectsServicePtr o = objects();
    const OrvoObjectUIOPtr source = o ? o->GetObjectUIO(row.Key) : nullptr;
    const OrvoObjectUIOPtr cover = o ? o->GetObjectUIO(kOperation) : nullptr;
    if (!source || !cover)
        return QStringLiteral("Nepavyko atidaryti operacijos ") + row.Key;
    const RecordsetPtr entries = source->Field(QStringLiteral("BR")).toRecordset();
    if (!entries ||
        !Catalogue::TryFilter(entries, QStringLiteral("GUID = '") + row.GUID + QStringLiteral("'")))
        return QStringLiteral("Nerastas įrašas ") + row.Key;
    const double sumA = NzDouble(entries->Field(QStringLiteral("SumA")));

    // The deferred account stands on the other side of the monthly entries: a deferred
    // expense (debit) is credited as it is written off, a deferred income debited. Each
    // monthly entry refers to the deferred entry on that side, which is how the list
    // finds what is covered, and carries the deferred entry's own addressees of the side.
    const qint16 deferredSide = ByDebit ? -1 : 1;
    const qint16 ownSide = ByDebit ? 1 : -1;
    ValueArray triples;
    triples << Value(deferredSide) << Value(row.Key)
            << Value(dateText(row.DateD) + QStringLiteral(" Nr. ") + row.Number);
    if (const RecordsetPtr props = entries->Field(QStringLiteral("BRProperties")).toRecordset())
        for (props->MoveFirst(); !props->Eof(); props->MoveNext()) {
            const QString foidr = field(props, "FOIDR");
            const bool sameSide =
                (NzInt(props->Field(QStringLiteral("Sign"))) == 1) == (ownSide == 1);
            if (sameSide && !foidr.startsWith(kOperation))
                triples << Value(deferredSide) << Value(foidr) << Value(field(props, "ShowString"));
        }
    entries->SetFilter(QString());
    if (AddresseeOIDR.size() > 8)
        triples << Value(qint16(-deferredSide)) << Value(AddresseeOIDR) << Value(AddresseeText);

    cover->SetField(QStringLiteral("BROperGroupID"), Value(GroupID));
    cover->SetField(QStringLiteral("DateD"), Value(OperDate));
    cover->SetField(QStringLiteral("Number"), Value(number));
    cover->SetField(QStringLiteral("Comment"), Value(Comment));
    const QString accountD = ByDebit ? CoverAccount : Account;
    const QString accountC = ByDebit ? Account : CoverAccount;
    const QVector<double> sums = MonthlySums(sumA, row.MonthCount.trimmed().toInt());
    const QDate from = MonthDate(row.MonthFrom);
    for (int i = 0; i < sums.size(); ++i) {
        const ValueResult added = cover->Methods(
            QStringLiteral("AddBR"),
            {Value(accountD), Value(accountC), Value(sums.at(i)), Value(triples), Value(qint16(0)),
             Value(QStringLiteral("   ")), Value(0.0), Value(0.0), Value(QStringLiteral("   ")),
             Value(0.0), Value(Comment), Value(QString()), Value(DateParam(AddMonths(from, i)))});
        if (!added.ok())
            return added.Text;
    }
    cover->Methods(QStringLiteral("SaveAutoNumber"), {Value(Mask), Value(number)});
    const ResultRecord saved = cover->Save();
    if (!saved.ok())
        return saved.Text;
    Created.append(cover->OIDR());
    return QString();
}

bool DeferredCovers::DeleteCover(int row) {
    if (row < 0 || row >= Rows.size() || Rows.at(row).RelatedOIDR.size() < 9)
        return false;
    if (!AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
        return false;
    const OrvoObjectsServicePtr o = objects();
    const OrvoObjectUIPtr ui = o ? o->GetObjectUI(kOperation) : nullptr;
    if (!ui || !ui->DeleteOrvoObject(Rows.at(row).RelatedOIDR))
        return false;
    Fill();
    return true;
}

void DeferredCovers::SaveSettings() const {
    const OrvoSettingsServicePtr s = settings();
    if (!s)
        return;
    const QString section = SettingsSection();
    s->SaveSetting(section, QStringLiteral("SubscriptionAccount"), Account);
    s->SaveSetting(section, QStringLiteral("SubscriptionCoverAccount"), CoverAccount);
    s->SaveSetting(section, QStringLiteral("SubscriptionCoverComment"), Comment);
    s->SaveSetting(section, QStringLiteral("SubscriptionByDebit"),
                   ByDebit ? QStringLiteral("1") : QStringLiteral("0"));
    s->SaveSetting(section, QStringLiteral("SubscriptionAddrOIDR"), AddresseeOIDR);
    s->SaveSetting(section, QStringLiteral("SubscriptionDetails"),
                   DetailView ? QStringLiteral("1") : QStringLiteral("0"));
}

} // namespace orvo
