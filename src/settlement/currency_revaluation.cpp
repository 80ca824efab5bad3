#include "settlement/currency_revaluation.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "frame/catalogue.h"
#include "frame/messages.h"
#include "settlement/currency_revaluation_entry.h"

namespace orvo {

namespace {

const QString kNoCurrency = QStringLiteral("   ");
const QString kBankAccountKind = QStringLiteral("O0000500");
const QString kDonePrefix = QStringLiteral("Perskaičiuota: ");

QString quoted(const QString& text) {
    return QStringLiteral("'") + text + QStringLiteral("'");
}

bool isBlankCode(const QString& code) {
    return code.trimmed().isEmpty();
}

// A full reference names one object: a kind of eight characters and a number.
bool isFullReference(const QString& reference) {
    return reference.size() >= 9;
}

QString rateText(double rate) {
    return rate > 0 ? FormatNumberLt(rate, 6, false) : QStringLiteral(" ");
}

} // namespace

QStringList CurrencyRevaluation::Row::Cells() const {
    if (Total)
        return {Text,
                FormatAmount(RestLt),
                QStringLiteral(" "),
                QStringLiteral(" "),
                QStringLiteral(" "),
                FormatAmount(SumLt),
                QStringLiteral(" ")};
    return {Text,
            FormatAmount(RestLt),
            FormatAmount(RestCurr),
            CurrCode,
            rateText(Rate),
            HasSumLt ? FormatAmount(SumLt) : QStringLiteral(" "),
            HasInfluence ? FormatAmount(SumInfluence) : QStringLiteral(" ")};
}

CurrencyRevaluation::CurrencyRevaluation(OrvoObjectUIOPtr operation)
    : accounts(Dictionary::Create()), currencyRates(Dictionary::Create()),
      doneKeys(Dictionary::Create()), op_(std::move(operation)) {}

CurrencyRevaluation::RatePair CurrencyRevaluation::RatesOf(double value, bool baseIsEuro) {
    if (!(value > 0))
        return {};
    const double turned = RoundHalfUp(1.0 / value, 6);
    return baseIsEuro ? RatePair{turned, value} : RatePair{value, turned};
}

QStringList CurrencyRevaluation::Headers(const QString& baseCurrency) {
    return {QStringLiteral("Valiutinės operacijos"),
            QStringLiteral("Likutis ") + baseCurrency,
            QStringLiteral("Likutis valiuta"),
            QStringLiteral("Valiuta"),
            QStringLiteral("Buh. kursas"),
            QStringLiteral("Apsk. likutis ") + baseCurrency,
            QStringLiteral("Kurso įtaka")};
}

QStringList CurrencyRevaluation::Keys() {
    return {QStringLiteral("BROper"),      QStringLiteral("RestLt"),   QStringLiteral("RestCurr"),
            QStringLiteral("CurrCode"),    QStringLiteral("CurrRate"), QStringLiteral("SumLt"),
            QStringLiteral("SumInfluence")};
}

QString CurrencyRevaluation::ModeWord(Mode m) {
    return m == Mode::ByOpers ? QStringLiteral("ByOpers") : QStringLiteral("ByAddr");
}

QString CurrencyRevaluation::ModeName(Mode m) {
    return m == Mode::ByOpers ? QStringLiteral("(operacijų likučių perskaičiavimai)")
                              : QStringLiteral("(b/sąskaitos likučių perskaičiavimas)");
}

void CurrencyRevaluation::Open(const QDate& today) {
    accounts = Catalogue::AccountList(op_);
    const DictionaryPtr roles = Catalogue::PresetAccountCodes(op_);
    accountRateIncome = NzString(roles->Item(QStringLiteral("536")));
    accountRateExpense = NzString(roles->Item(QStringLiteral("636")));
    if (accountRateIncome.isEmpty() || accountRateExpense.isEmpty())
        ShowWarning(QStringLiteral(
            "Sąskaitų žinyne nepažymėta valiutos kursų pasikeitimo įtakos sąskaita!"));
    SetDate(today);
    variants_.Load();
}

void CurrencyRevaluation::SetDate(const QDate& newDate) {
    date = newDate;
    currencyRates = Catalogue::CurrencyListFor(op_, date, Catalogue::BaseIsEuro());
    rows.clear();
    read_.reset();
}

int CurrencyRevaluation::SideSign() const {
    return side == QLatin1String("D") ? -1 : 1;
}

void CurrencyRevaluation::setStatus(const QString& text) {
    status = text;
    if (onStatus)
        onStatus(text);
}

bool CurrencyRevaluation::keyMatches(const QString& key, const QString& sideLetter,
                                     const QString& acc, const QString& addr) const {
    const int underscore = key.indexOf(QLatin1Char('_'));
    if (underscore < 0 || key.left(underscore) != sideLetter + acc)
        return false;
    // Two different addressees of one account are two separate balances.
    const QString doneAddressee = key.mid(underscore + 1);
    return !(isFullReference(doneAddressee) && isFullReference(addr) && doneAddressee != addr);
}

QString CurrencyRevaluation::doneKey() const {
    return side + account + QStringLiteral("_") + addressee;
}

bool CurrencyRevaluation::IsRepeat() const {
    for (const QString& key : doneKeys->Keys())
        if (keyMatches(key, side, account, addressee)) {
            ShowWarning(QStringLiteral("Pakartotinas sąskaitos likučių perskaičiavimas !"));
            return true;
        }
    return false;
}

bool CurrencyRevaluation::ConfirmVariantMix() {
    const QString text =
        QStringList{quoted(account), quoted(accountRateIncome), quoted(accountRateExpense)}.join(
            QLatin1Char(',')) +
        (mode == Mode::ByOpers ? QStringLiteral(",0") : QStringLiteral(",1"));
    const ValueResult r = op_->Properties(QStringLiteral("CheckInfluenceType"), text);
    if (!r.ok())
        return false;
    const RecordsetPtr rs = r.Value.toRecordset();
    if (!rs || rs->RecordCount() == 0)
        return true;
    const Mode other = mode == Mode::ByOpers ? Mode::ByAddr : Mode::ByOpers;
    return AskQuestion(QStringLiteral("Parinktas valiutos perskaičiavimo variantas ") +
                       ModeName(mode) + QStringLiteral("\n") +
                       QStringLiteral("skiriasi  nuo jau naudoto kito varianto ") +
                       ModeName(other) + QStringLiteral(".") + QStringLiteral("\n") +
                       QStringLiteral("Tęsti veiksmą ?"));
}

bool CurrencyRevaluation::Go() {
    if (account.trimmed().isEmpty()) {
        ShowWarning(QStringLiteral("Neužduota sąskaita !"));
        return false;
    }
    if (IsRepeat())
        return false;
    if (!ConfirmVariantMix())
        return false;
    return read();
}

bool CurrencyRevaluation::read() {
    rows.clear();
    read_.reset();
    setStatus(QStringLiteral("Vyksta duomenų paruošimas ..."));
    const QString sign = side == QLatin1String("D") ? QStringLiteral("1") : QStringLiteral("-1");
    QString property;
    QString text;
    if (mode == Mode::ByOpers) {
        property = addressee.size() < 8   ? QStringLiteral("Debts3")
                   : addressee.size() < 9 ? QStringLiteral("Debts2")
                                          : QStringLiteral("Debts1");
        text = QStringList{quoted(QStringLiteral("0")), quoted(account), quoted(DateParam(date)),
                           quoted(addressee), sign}
                   .join(QLatin1Char(','));
    } else {
        property = QStringLiteral("AccountTotal");
        text = QStringList{quoted(account), quoted(addressee), quoted(DateParam(date)), sign}.join(
            QLatin1Char(','));
    }
    const ValueResult r = op_->Properties(property, text);
    if (!r.ok()) {
        setStatus(QString());
        return false;
    }
    RecordsetPtr rs = r.Value.toRecordset();
    if (rs && mode == Mode::ByOpers)
        rs = Catalogue::CloneRecordset(rs);
    if (!rs || rs->RecordCount() == 0) {
        setStatus(QStringLiteral("Nėra informacijos!"));
        return true;
    }
    read_ = rs;
    setStatus(QStringLiteral("Vyksta lentelės užpildymas ..."));
    fill();
    setStatus(QString());
    return true;
}

void CurrencyRevaluation::Refill() {
    if (read_)
        fill();
}

void CurrencyRevaluation::fill() {
    rows.clear();
    const bool byOpers = mode == Mode::ByOpers;
    const bool euro = Catalogue::BaseIsEuro();
    const int sideSign = SideSign();
    double totalBook = 0;
    double totalSumLt = 0;
    for (read_->MoveFirst(); !read_->Eof(); read_->MoveNext()) {
        const double curr = NzDouble(
            read_->Field(byOpers ? QStringLiteral("LikutisCurr") : QStringLiteral("RestCurr")));
        const double book = NzDouble(
            read_->Field(byOpers ? QStringLiteral("LikutisLt") : QStringLiteral("RestLt")));
        QString code = NzString(read_->Field(QStringLiteral("FCurrencyCode")));
        if (isBlankCode(code))
            code = kNoCurrency;
        if (code == kNoCurrency && curr == 0)
            continue;
        Row row;
        if (byOpers) {
            row.Text = DateParam(NzDate(read_->Field(QStringLiteral("DateD")), QDate())) +
                       QLatin1Char(' ') + NzString(read_->Field(QStringLiteral("Number"))) +
                       QLatin1Char(' ') + NzString(read_->Field(QStringLiteral("Comment")));
            row.Tag = NzString(read_->Field(QStringLiteral("OIDR")));
            row.FOIDR = NzString(read_->Field(QStringLiteral("FOIDR")));
        }
        row.RestLt = book;
        row.RestCurr = curr;
        row.CurrCode = code;
        if (curr == 0 && code != kNoCurrency) {
            // Nothing is left in the currency: the whole base rest goes, on the side's sign.
            row.HasInfluence = true;
            row.SumInfluence = RoundHalfUp(book * sideSign, 2);
        } else if (currencyRates->Exists(code)) {
            const RatePair pair = RatesOf(NzDouble(currencyRates->Item(code)), euro);
            row.Rate = pair.Rate;
            row.InverseRate = pair.Inverse;
            if (row.Rate > 0) {
                row.HasSumLt = true;
                row.SumLt = RoundHalfUp(row.Rate * curr, 2);
                row.HasInfluence = true;
                row.SumInfluence = RoundHalfUp((book - row.SumLt) * sideSign, 2);
            }
        }
        totalBook += book;
        totalSumLt += row.SumLt;
        rows.append(row);
    }
    if (!rows.isEmpty()) {
        Row total;
        total.Total = true;
        total.RestLt = totalBook;
        total.SumLt = totalSumLt;
        rows.append(total);
    }
}

bool CurrencyRevaluation::validateForCheck(const Row& row) const {
    QString fault;
    if (row.RestCurr < 0)
        fault = QStringLiteral("Klaidingas likutis !");
    else if (row.CurrCode != kNoCurrency && !(row.Rate > 0))
        fault = QStringLiteral("Nenurodytas ") + row.CurrCode + QStringLiteral(" kursas!");
    if (!fault.isEmpty()) {
        ShowWarning(row.Text + QStringLiteral("\n") + fault);
        return false;
    }
    return row.HasSumLt && FormatAmount(row.SumLt) != QLatin1String(" ");
}

bool CurrencyRevaluation::SetChecked(int index, bool checked) {
    if (index < 0 || index >= rows.size())
        return false;
    Row& row = rows[index];
    if (row.Total) {
        row.Checked = false;
        return false;
    }
    if (!checked) {
        row.Checked = false;
        return false;
    }
    if (!row.HasInfluence || FormatAmount(row.SumInfluence) == QLatin1String(" ")) {
        row.Checked = false;
        return false;
    }
    row.Checked = mode == Mode::ByAddr || validateForCheck(row);
    return row.Checked;
}

bool CurrencyRevaluation::InputRate(int index) {
    if (index < 0 || index >= rows.size())
        return false;
    const QString code = rows.at(index).CurrCode;
    if (code.size() != 3 || code == kNoCurrency)
        return false;
    const double old = NzDouble(currencyRates->Item(code));
    op_->Methods(QStringLiteral("CurrencyRates"), {Value(code), Value(date)});
    currencyRates = Catalogue::CurrencyListFor(op_, date, Catalogue::BaseIsEuro());
    if (NzDouble(currencyRates->Item(code)) != old)
        Refill();
    return true;
}

ValueArray CurrencyRevaluation::addresseesFor(const Row& row, qint16 sign) const {
    ValueArray list;
    if (row.Tag.size() >= 9) {
        list << Value(sign) << Value(row.Tag) << Value(row.Text);
        // The debt's other addressees, read on the side the account keeps them.
        const QString owner = isFullReference(addressee) ? addressee : row.FOIDR;
        const qint16 negated = qint16(-SideSign());
        const ValueResult r = op_->Properties(
            QStringLiteral("BRPropertiesByAcc"),
            QStringList{quoted(account), quoted(owner), QString::number(negated)}.join(
                QLatin1Char(',')));
        const RecordsetPtr rs = r.ok() ? r.Value.toRecordset() : nullptr;
        if (rs)
            for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
                const QString foidr = NzString(rs->Field(QStringLiteral("FOIDR")));
                bool present = false;
                for (int i = 1; i < list.size() && !present; i += 3)
                    present = list.at(i).toString().left(8) == foidr.left(8);
                if (!present)
                    list << Value(negated) << Value(foidr)
                         << Value(NzString(rs->Field(QStringLiteral("ShowString"))));
            }
        const int count = list.size();
        for (int i = 3; i + 2 < count; i += 3)
            list << Value(qint16(-list.at(i).toInt16())) << list.at(i + 1) << list.at(i + 2);
        return list;
    }
    if (!isFullReference(addressee))
        return list;
    if (addressee.left(8) == kBankAccountKind) {
        const ValueResult r = op_->Properties(QStringLiteral("BankByAccount"), quoted(addressee));
        const RecordsetPtr rs = r.ok() ? r.Value.toRecordset() : nullptr;
        if (rs && rs->RecordCount() > 0) {
            rs->MoveFirst();
            list << Value(sign) << Value(addressee)
                 << Value(NzString(rs->Field(QStringLiteral("AccountNumber")))) << Value(sign)
                 << Value(NzString(rs->Field(QStringLiteral("OIDR"))))
                 << Value(NzString(rs->Field(QStringLiteral("Name"))));
        }
    }
    if (list.isEmpty())
        list << Value(sign) << Value(addressee) << Value(addresseeText);
    // The addressees stand on both sides of the entry.
    const int count = list.size();
    for (int i = 0; i + 2 < count; i += 3)
        list << Value(qint16(-list.at(i).toInt16())) << list.at(i + 1) << list.at(i + 2);
    return list;
}

CurrencyRevaluation::PostResult CurrencyRevaluation::Post() {
    // Everything that would stop the posting half-way is looked at before the first entry.
    if (accountRateIncome.isEmpty() || accountRateExpense.isEmpty()) {
        ShowWarning(QStringLiteral(
            "Sąskaitų žinyne nepažymėta valiutos kursų pasikeitimo įtakos sąskaita!"));
        return PostResult::Failed;
    }
    for (const Row& row : rows) {
        if (!row.Checked || row.Total || row.HasInfluence)
            continue;
        ShowWarning(row.Text + QStringLiteral("\nNenurodytas ") + row.CurrCode +
                    QStringLiteral(" kursas!"));
        return PostResult::Failed;
    }
    op_->SetField(QStringLiteral("DateD"), Value(date));
    for (const Row& row : rows) {
        if (!row.Checked || row.Total)
            continue;
        const double influence = row.HasInfluence ? RoundHalfUp(row.SumInfluence, 2) : 0.0;
        if (influence == 0)
            continue;
        RateChangeEntry entry;
        if (influence < 0) {
            entry.Sign = -1;
            entry.AccountD = accountRateExpense;
            entry.AccountC = account;
        } else {
            entry.Sign = 1;
            entry.AccountD = account;
            entry.AccountC = accountRateIncome;
        }
        entry.Amount = qAbs(influence);
        entry.Addressees = addresseesFor(row, entry.Sign);
        entry.CurrencyCode = row.CurrCode;
        entry.Date = DateParam(date);
        const ValueResult added = AddRateChangeEntry(op_, entry);
        if (!added.ok() || added.Value.toString().isEmpty()) {
            // A refusal of the operation's own checks was shown by the operation.
            if (!added.ok() && added.Code != codes::Refused)
                ShowError(added.Text);
            return PostResult::Failed;
        }
    }
    if (NzString(op_->Field(QStringLiteral("Comment"))).isEmpty())
        op_->SetField(QStringLiteral("Comment"), Value(QStringLiteral("Valiutos perskaičiavimas")));
    doneKeys->Add(doneKey(), Value(true));
    // What was posted leaves the list, so that it cannot be posted twice.
    rows.clear();
    read_.reset();
    setStatus(QStringLiteral("Perskaičiavimas atliktas..."));
    return PostResult::Done;
}

QStringList CurrencyRevaluation::VariantCaptions() const {
    QStringList captions;
    for (const CurrencyRevaluationVariant& v : variants_.Items()) {
        bool done = false;
        for (const QString& key : doneKeys->Keys())
            done = done || keyMatches(key, v.Side, v.Account, v.AddresseeRef);
        captions.append(done ? kDonePrefix + v.Caption() : v.Caption());
    }
    return captions;
}

void CurrencyRevaluation::ChooseVariant(int index) {
    if (index < 0 || index >= variants_.Items().size())
        return;
    const CurrencyRevaluationVariant& v = variants_.Items().at(index);
    mode = v.Mode == QLatin1String("ByAddr") ? Mode::ByAddr : Mode::ByOpers;
    account = v.Account;
    side = v.Side == QLatin1String("K") ? QStringLiteral("K") : QStringLiteral("D");
    addressee = v.AddresseeRef;
    addresseeText = v.AddresseeText;
    rows.clear();
    read_.reset();
}

bool CurrencyRevaluation::SaveVariant() {
    CurrencyRevaluationVariant v;
    v.Mode = ModeWord(mode);
    v.Account = account.trimmed();
    v.Side = side;
    v.AddresseeRef = addressee;
    v.AddresseeText = addresseeText;
    return variants_.Add(v);
}

bool CurrencyRevaluation::DeleteVariant(int index) {
    return variants_.Remove(index);
}

} // namespace orvo
