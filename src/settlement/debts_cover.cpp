#include "settlement/debts_cover.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/today.h"
#include "frame/catalogue_accounts.h"
#include "frame/catalogue_currency.h"
#include "frame/catalogue_data_access.h"
#include "frame/catalogue_operations.h"
#include "frame/messages.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_settings_service.h"
#include "operations/form_access.h"
#include "settlement/debts_cover_posting.h"
#include "settlement/selection_debts.h"

namespace orvo {

namespace {

const QString kCoveredMark = QStringLiteral("*** ");
const QString kTwice = QStringLiteral("Toks variantas jau išsaugotas !");
constexpr int kCommentLimit = 1000;
constexpr int kAddresseeLimit = 65534;

QString quoted(const QString& s) {
    return QLatin1Char('\'') + s + QLatin1Char('\'');
}

OrvoSettingsServicePtr settings() {
    const OrvoServicesPtr services = OrvoS();
    return services ? services->SettingsService() : nullptr;
}

DebtsCoverSide sideOf(const DebtsCoverList& list, const QString& account,
                      const QString& addressee) {
    DebtsCoverSide side;
    side.Account = account;
    side.Addressee = addressee;
    for (const DebtsCoverRow& row : list.Rows())
        if (row.Checked)
            side.Rows.append(row);
    return side;
}

} // namespace

DebtsCover::DebtsCover(OrvoObjectUIOPtr operation) : op_(std::move(operation)) {}

void DebtsCover::Open() {
    coverDate = Today();
    currencyRates = Catalogue::CurrencyListFor(op_, coverDate, false);
    accounts = Catalogue::AccountList(op_);
    const DictionaryPtr roles = Catalogue::PresetAccountCodes(op_);
    accountRateIncome = NzString(roles->Item(QStringLiteral("536")));
    accountRateExpense = NzString(roles->Item(QStringLiteral("636")));
    if (accountRateIncome.isEmpty() || accountRateExpense.isEmpty()) {
        fillRefused = true;
        ShowWarning(QStringLiteral(
            "Sąskaitų žinyne nepažymėta valiutos kursų pasikeitimo įtakos sąskaita!"));
    }
    variants.clear();
    if (const OrvoSettingsServicePtr s = settings()) {
        const QString stored = s->GetSetting(SettingsSection(), SettingsKey());
        for (const QString& v : stored.split(QLatin1Char('#'), Qt::SkipEmptyParts))
            variants.append(v);
    }
}

QString DebtsCover::VariantText() const {
    if (accountPrimary.isEmpty() || accountSecondary.isEmpty())
        return QString();
    const QString debit = primaryDebit ? accountPrimary : accountSecondary;
    const QString credit = primaryDebit ? accountSecondary : accountPrimary;
    return debit + QStringLiteral(" D - ") + credit + QStringLiteral(" K");
}

bool DebtsCover::ParseVariant(const QString& text, QString* debit, QString* credit) {
    const int at = text.indexOf(QLatin1Char('D'));
    if (at < 1 || text.mid(at, 4) != QStringLiteral("D - "))
        return false;
    *debit = text.left(at - 1);
    QString rest = text.mid(at + 4);
    if (rest.endsWith(QStringLiteral(" K")))
        rest.chop(2);
    *credit = rest;
    return !debit->isEmpty() && !credit->isEmpty();
}

void DebtsCover::ChooseVariant(const QString& text) {
    QString debit;
    QString credit;
    if (!ParseVariant(text, &debit, &credit))
        return;
    accountPrimary = credit;
    accountSecondary = debit;
    primaryDebit = false;
    ClearAddressee(true);
    ClearAddressee(false);
    ClearLists();
}

bool DebtsCover::SaveVariant() {
    if (!ValidAccount(accountPrimary) || !ValidAccount(accountSecondary)) {
        ShowWarning(QStringLiteral("Neužduota sąskaita !"));
        return false;
    }
    const QString text = VariantText();
    if (variants.contains(text)) {
        ShowWarning(kTwice);
        return false;
    }
    variants.append(text);
    storeVariants();
    return true;
}

void DebtsCover::DeleteVariant(int index) {
    if (index < 0 || index >= variants.size())
        return;
    variants.removeAt(index);
    storeVariants();
}

void DebtsCover::storeVariants() {
    if (const OrvoSettingsServicePtr s = settings())
        s->SaveSetting(SettingsSection(), SettingsKey(), variants.join(QLatin1Char('#')));
}

QString DebtsCover::PrimaryKey(const QString& addressee) const {
    return accountPrimary + (primaryDebit ? QStringLiteral(" D") : QStringLiteral(" K")) +
           addressee;
}

QString DebtsCover::SecondaryKey(const QString& addressee) const {
    return accountSecondary + (primaryDebit ? QStringLiteral(" K") : QStringLiteral(" D")) +
           addressee;
}

bool DebtsCover::Covered(const QString& addressee) const {
    return coveredKeys.contains(PrimaryKey(addressee)) ||
           coveredKeys.contains(SecondaryKey(addressee));
}

void DebtsCover::SetPrimaryDebit(bool debit) {
    if (primaryDebit == debit)
        return;
    primaryDebit = debit;
    ClearLists();
}

void DebtsCover::SetAccounts(const QString& primaryAccount, const QString& secondaryAccount) {
    if (primaryAccount == accountPrimary && secondaryAccount == accountSecondary)
        return;
    accountPrimary = primaryAccount;
    accountSecondary = secondaryAccount;
    ClearLists();
}

void DebtsCover::SetDate(const QDate& date) {
    if (date == coverDate || dateLocked)
        return;
    coverDate = date;
    currencyRates = Catalogue::CurrencyListFor(op_, coverDate, false);
    ClearLists();
}

void DebtsCover::SetAddressee(bool primarySide, const QString& reference, const QString& text) {
    QString& ref = primarySide ? addrPrimary : addrSecondary;
    QString& shown = primarySide ? addrPrimaryText : addrSecondaryText;
    if (reference == ref)
        return;
    ref = reference;
    shown = text;
    QString& other = primarySide ? addrSecondary : addrPrimary;
    if (other.size() < 8) {
        other = reference;
        (primarySide ? addrSecondaryText : addrPrimaryText) = text;
    }
    ClearLists();
}

void DebtsCover::ClearAddressee(bool primarySide) {
    (primarySide ? addrPrimary : addrSecondary).clear();
    (primarySide ? addrPrimaryText : addrSecondaryText).clear();
    ClearLists();
}

bool DebtsCover::ValidAccount(const QString& account) const {
    return !account.isEmpty() && accounts && accounts->Exists(account);
}

QString DebtsCover::KindLabel(const QString& kind) {
    if (kind == QLatin1String("O0001402"))
        return QStringLiteral("Fiziniai asmenys");
    if (kind == QLatin1String("O0001401"))
        return QStringLiteral("Darbuotojai");
    return QStringLiteral("Įmonės");
}

bool DebtsCover::ListAddressees(const QString& kind) {
    addresseeKind = kind.isEmpty() ? QStringLiteral("O0000100") : kind;
    firmsLabel = KindLabel(addresseeKind);
    const QString variant = VariantText();
    if (variant.isEmpty() || addrPrimary != addrSecondary)
        return false;
    setStatus(QStringLiteral("Vyksta duomenų paruošimas ..."));
    const QString debit = primaryDebit ? accountPrimary : accountSecondary;
    const QString credit = primaryDebit ? accountSecondary : accountPrimary;
    const ValueResult r = op_->Properties(QStringLiteral("CoverFirms"),
                                          quoted(DateParam(coverDate)) + QLatin1Char(',') +
                                              quoted(credit) + QLatin1Char(',') + quoted(debit) +
                                              QLatin1Char(',') + quoted(addresseeKind));
    setStatus(QString());
    addresseeTexts.clear();
    addressees.clear();
    addresseeIndex = -1;
    const RecordsetPtr rs = r.ok() ? r.Value.toRecordset() : nullptr;
    if (!rs)
        return false;
    for (rs->MoveFirst(); !rs->Eof() && addressees.size() < kAddresseeLimit; rs->MoveNext()) {
        const QString foidr = NzString(rs->Field(QStringLiteral("FOIDR")));
        const QString shown = NzString(rs->Field(QStringLiteral("ShowString")));
        addresseeTexts.append(Covered(foidr) ? kCoveredMark + shown : shown);
        addressees.append(foidr);
    }
    coveredVariant_.clear();
    if (addressees.isEmpty())
        return false;
    addresseeIndex = 0;
    const QString first = addresseeTexts.first();
    addrPrimary = addrSecondary = addressees.first();
    addrPrimaryText = addrSecondaryText =
        first.startsWith(kCoveredMark) ? first.mid(kCoveredMark.size()) : first;
    return true;
}

bool DebtsCover::ChooseAddressee(int index) {
    if (index < 0 || index >= addressees.size())
        return false;
    addresseeIndex = index;
    if (addresseeTexts.at(index).startsWith(kCoveredMark)) {
        ShowWarning(kTwice);
        return false;
    }
    addrPrimary = addrSecondary = addressees.at(index);
    addrPrimaryText = addrSecondaryText = addresseeTexts.at(index);
    ClearLists();
    return Fill();
}

QString DebtsCover::readDebts(bool primarySide, RecordsetPtr* out) {
    // The debit option of a side lists its debit debts, the credit option its credit debts.
    const bool creditChosen = primarySide ? !primaryDebit : primaryDebit;
    DebtsRequest request;
    request.Account = primarySide ? accountPrimary : accountSecondary;
    request.Date = coverDate;
    request.Addressee = primarySide ? addrPrimary : addrSecondary;
    request.Sign = creditChosen ? -1 : 1;
    request.QueryFlag = request.Sign;
    const ValueResult r = SelectionDebts::Read(op_, request);
    *out = r.ok() ? r.Value.toRecordset() : nullptr;
    return r.ok() ? QString() : r.Text;
}

bool DebtsCover::Fill() {
    if (fillRefused || accountRateExpense.isEmpty() || accountRateIncome.isEmpty() ||
        accountPrimary.isEmpty() || accountSecondary.isEmpty() || addrPrimary.isEmpty() ||
        addrSecondary.isEmpty() || !ValidAccount(accountPrimary) || !ValidAccount(accountSecondary))
        return false;
    ClearLists();
    setStatus(QStringLiteral("Vyksta duomenų paruošimas ..."));
    RecordsetPtr rsPrimary;
    RecordsetPtr rsSecondary;
    readDebts(true, &rsPrimary);
    readDebts(false, &rsSecondary);
    setStatus(QStringLiteral("Vyksta lentelės užpildymas ..."));
    const bool euro = Catalogue::BaseIsEuro();
    primary.Fill(rsPrimary, currencyRates, accountRateIncome, accountRateExpense, euro);
    secondary.Fill(rsSecondary, currencyRates, accountRateIncome, accountRateExpense, euro);
    setStatus(QString());
    return true;
}

void DebtsCover::ClearLists() {
    primary.Clear();
    secondary.Clear();
}

bool DebtsCover::CanSave() const {
    return primary.CheckedCount() > 0 && secondary.CheckedCount() > 0;
}

QString DebtsCover::SumText(double sum) {
    return FormatNumberLt(sum, 2, false);
}

bool DebtsCover::InputRate(bool primarySide, int row) {
    DebtsCoverList& list = primarySide ? primary : secondary;
    if (row < 0 || row >= list.Count() || !list.Rows().at(row).HasCurrency())
        return false;
    const QString code = list.Rows().at(row).CurrencyCode;
    const double old = currencyRates ? NzDouble(currencyRates->Item(code)) : 0;
    op_->Methods(QStringLiteral("CurrencyRates"), {Value(code), Value(coverDate)});
    currencyRates = Catalogue::CurrencyListFor(op_, coverDate, false);
    if (NzDouble(currencyRates->Item(code)) == old)
        return false;
    const bool euro = Catalogue::BaseIsEuro();
    const RecordsetPtr rsPrimary = primary.Recordset();
    const RecordsetPtr rsSecondary = secondary.Recordset();
    primary.Fill(rsPrimary, currencyRates, accountRateIncome, accountRateExpense, euro);
    secondary.Fill(rsSecondary, currencyRates, accountRateIncome, accountRateExpense, euro);
    return true;
}

bool DebtsCover::Save() {
    const QString keyP = PrimaryKey(addrPrimary);
    const QString keyS = SecondaryKey(addrSecondary);
    if (coveredKeys.contains(keyP) || coveredKeys.contains(keyS)) {
        ShowWarning(kTwice);
        return false;
    }
    if (dateByCovered) {
        for (const DebtsCoverList* list : {&primary, &secondary})
            for (const DebtsCoverRow& row : list->Rows())
                if (row.Checked && row.InfluenceSum != 0) {
                    ShowError(
                        QStringLiteral("Valiutos kurso keitimo įtaka nustatoma operacijos datai!") +
                        QLatin1Char('\n') +
                        QStringLiteral("Parinkite dengimo datos nustatymą pagal operacijos datą."));
                    return false;
                }
    }

    setStatus(QStringLiteral("Vyksta įrašymas ..."));
    QString addition = addrPrimaryText;
    if (addrSecondaryText != addrPrimaryText)
        addition += QStringLiteral(" - ") + addrSecondaryText;
    if (coveredKeys.isEmpty()) {
        op_->SetField(QStringLiteral("DateD"), Value(coverDate));
        op_->SetField(QStringLiteral("Comment"),
                      Value(QString(QStringLiteral("Skolų dengimas - ") + addition)));
    } else {
        const QString extended =
            NzString(op_->Field(QStringLiteral("Comment"))) + QStringLiteral(", ") + addition;
        if (extended.size() <= kCommentLimit)
            op_->SetField(QStringLiteral("Comment"), Value(extended));
    }

    DebtsCoverPosting posting(op_, primaryDebit, accountRateIncome, accountRateExpense);
    posting.SetDates(coverDate, dateByCovered);
    const bool posted = posting.Run(sideOf(primary, accountPrimary, addrPrimary),
                                    sideOf(secondary, accountSecondary, addrSecondary));
    setStatus(QString());
    if (OperationChanged)
        OperationChanged();
    if (!posted)
        return false;

    coveredKeys.append(keyP);
    coveredKeys.append(keyS);
    exitCaption = QStringLiteral("Užbaigti");
    dateLocked = true;
    ClearLists();
    coveredVariant_ = VariantText();
    Advance();
    return true;
}

void DebtsCover::markCovered(int index) {
    if (index >= 0 && index < addresseeTexts.size() &&
        !addresseeTexts.at(index).startsWith(kCoveredMark))
        addresseeTexts[index] = kCoveredMark + addresseeTexts.at(index);
}

bool DebtsCover::Advance() {
    if (coveredVariant_ != VariantText() || addressees.isEmpty())
        return false;
    const int current = addressees.indexOf(addrPrimary);
    if (current >= 0)
        markCovered(current);
    const int n = addressees.size();
    for (int step = 1; step <= n; ++step) {
        const int i = (qMax(current, -1) + step) % n;
        if (addresseeTexts.at(i).startsWith(kCoveredMark))
            continue;
        addresseeIndex = i;
        addrPrimary = addrSecondary = addressees.at(i);
        addrPrimaryText = addrSecondaryText = addresseeTexts.at(i);
        return Fill();
    }
    return false;
}

void DebtsCover::setStatus(const QString& text) {
    status = text;
    if (StatusChanged)
        StatusChanged(text);
    FormAccess::GiveEventLoopATurn();
}

} // namespace orvo
