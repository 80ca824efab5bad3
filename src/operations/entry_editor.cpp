#include "operations/entry_editor.h"

#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "frame/catalogue.h"
#include "frame/messages.h"
#include "operations/operation_object.h"

#include <cmath>

namespace orvo {

namespace {

const QString kEntryKind = QStringLiteral("O0201500");
const QString kFirm = QStringLiteral("O0000100");
const QString kPerson = QStringLiteral("O0001402");

qint16 signOf(EntryEditor::Side side) {
    return side == EntryEditor::Debit ? qint16(1) : qint16(-1);
}

// The kinds' names where the book has no list of them.
const QList<QPair<QString, QString>>& fallbackKindNames() {
    static const QList<QPair<QString, QString>> names = {
        {QStringLiteral("O0000100"), QStringLiteral("Įmonė")},
        {QStringLiteral("O0001401"), QStringLiteral("Darbuotojas")},
        {QStringLiteral("O0001402"), QStringLiteral("Fizinis asmuo")},
        {QStringLiteral("O0000300"), QStringLiteral("Bankas")},
        {QStringLiteral("O0000500"), QStringLiteral("Banko sąskaita")},
        {QStringLiteral("O0201500"), QStringLiteral("Operacija")},
        {QStringLiteral("O3010100"), QStringLiteral("Sutartis")}};
    return names;
}

bool sameSum(double a, double b) {
    return std::fabs(a - b) < 0.005;
}

QString amountText(double value) {
    return FormatNumberLt(value, 2, false);
}

QString rateText(double value) {
    return value == 0 ? QString() : FormatNumberLt(value, 9, false);
}

} // namespace

EntryEditor::EntryEditor(OrvoObjectUIOPtr operation, ComboControl& accountD, ComboControl& accountC,
                         ComboControl& currD, ComboControl& currC)
    : op_(std::move(operation)), accountD_(accountD), accountC_(accountC), currD_(currD),
      currC_(currC) {}

QStringList EntryEditor::TradeTypes() {
    return {QStringLiteral("Kitos operacijos"), QStringLiteral("Prekių (paslaugų) pirkimas"),
            QStringLiteral("Prekių grąžinimas tiekėjams"),
            QStringLiteral("Prekių (paslaugų) pardavimas"),
            QStringLiteral("Prekių grąžinimas iš pirkėjų")};
}

QStringList EntryEditor::VATIndications() {
    return {QStringLiteral("Prekių (paslaugų) vertė"), QStringLiteral("PVM suma")};
}

QStringList EntryEditor::DefaultTariffs() {
    return {QStringLiteral("18,00"), QStringLiteral("0,00"), QStringLiteral("5,00")};
}

QString EntryEditor::SumLabel() const {
    return QStringLiteral("Suma ") + BaseCurrency;
}

RecordsetPtr EntryEditor::nested(const QString& name) const {
    return Entries ? Entries->Field(name).toRecordset() : nullptr;
}

QString EntryEditor::kindName(const QString& kind) const {
    if (KindNames && KindNames->Exists(kind))
        return KindNames->Item(kind).toString();
    for (const auto& [code, name] : fallbackKindNames())
        if (code == kind)
            return name;
    return kind;
}

bool EntryEditor::Load() {
    BaseCurrency = Catalogue::GetBaseCurrency().toString().trimmed();
    BaseIsEuro = Catalogue::BaseIsEuro();
    KindNames = Dictionary::Create();
    const BusinessObjectPtr bo = op_ ? op_->BO() : nullptr;
    if (bo) {
        // Asked of the business object itself: a book without the list keeps the
        // component's own names, with no box.
        const BOResult kinds = bo->Call(QStringLiteral("GetAddresseeList"), QStringLiteral("None"));
        if (const RecordsetPtr rs = kinds.Code == 0 ? kinds.Data.toRecordset() : nullptr)
            for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
                const QString foid = NzString(rs->Field(QStringLiteral("FOID")));
                if (!foid.isEmpty() && !KindNames->Exists(foid))
                    KindNames->Add(foid, Value(NzString(rs->Field(QStringLiteral("Name")))));
            }
    }
    if (!Entries ||
        !Catalogue::TryFilter(Entries, QStringLiteral("GUID = '") + GUID + QStringLiteral("'")))
        return false;
    Tariffs = DefaultTariffs();
    if (bo) {
        const BOResult tariffs =
            bo->Call(QStringLiteral("DO0001629_GetVATtariffs"), QStringLiteral("None"));
        if (const RecordsetPtr rs = tariffs.Code == 0 ? tariffs.Data.toRecordset() : nullptr) {
            QStringList read;
            for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
                read.append(amountText(NzDouble(rs->Field(QStringLiteral("Value")))));
            if (!read.isEmpty())
                Tariffs = read;
        }
    }
    ShowRow();
    return true;
}

void EntryEditor::ShowRow() {
    if (!Accounts) {
        Accounts = Catalogue::AccountList(op_);
        for (const QString& account : Accounts->Keys())
            if (account.size() > 1 && account.startsWith(QLatin1Char('0')))
                ZeroPrefixedAccounts = true;
        if (!Accounts->Exists(QStringLiteral("0")))
            Accounts->Add(QStringLiteral("0"), Value(QStringLiteral("Pradiniai likučiai")));
    }
    Catalogue::FillAccountCombo(accountD_, Accounts,
                                NzString(Entries->Field(QStringLiteral("AccountD"))));
    AccountOk[Debit] = Catalogue::CheckAccountInList(accountD_, Accounts, true, false);
    Catalogue::FillAccountCombo(accountC_, Accounts,
                                NzString(Entries->Field(QStringLiteral("AccountC"))));
    AccountOk[Credit] = Catalogue::CheckAccountInList(accountC_, Accounts, true, false);

    Date = NzDate(Entries->Field(QStringLiteral("DateD")), QDate());
    Suma = amountText(NzDouble(Entries->Field(QStringLiteral("SumA"))));
    VATFlag = NzInt(Entries->Field(QStringLiteral("VATFlag"))) != 0;
    VATIndication = NzInt(Entries->Field(QStringLiteral("VATIndication")));
    const Value tariff = Entries->Field(QStringLiteral("VATTariff"));
    VATTariff = tariff.isNull() ? QString() : amountText(NzDouble(tariff));
    Info = NzString(Entries->Field(QStringLiteral("Info")));
    TradeType = NzInt(Entries->Field(QStringLiteral("TradeOperationType")));

    readRates();
    QString codes[2];
    Sides[Debit] = CurrencySide();
    Sides[Credit] = CurrencySide();
    if (const RecordsetPtr currencies = nested(QStringLiteral("BRCurrency")))
        for (currencies->MoveFirst(); !currencies->Eof(); currencies->MoveNext()) {
            const Side side =
                NzInt(currencies->Field(QStringLiteral("Sign"))) == 1 ? Debit : Credit;
            codes[side] = NzString(currencies->Field(QStringLiteral("FCurrencyCode")));
            Sides[side].Sum = amountText(NzDouble(currencies->Field(QStringLiteral("SumCurr"))));
            const Value quoted = Entries->Field(side == Debit ? QStringLiteral("CurrencyRateD")
                                                              : QStringLiteral("CurrencyRateC"));
            const double rate = BaseIsEuro && !quoted.isNull() && NzDouble(quoted) > 0
                                    ? NzDouble(quoted)
                                    : NzDouble(currencies->Field(QStringLiteral("RateCurr")));
            Sides[side].Rate = rateText(rate);
        }
    Catalogue::FillCurrencyCombo(currD_, Rates, codes[Debit]);
    Catalogue::FillCurrencyCombo(currC_, Rates, codes[Credit]);
    Sides[Debit].Code = currD_.Text();
    Sides[Credit].Code = currC_.Text();
    CurrenciesReadOnly = Rates->Count() == 0;

    for (QVector<AddresseeLine>& lines : Lines)
        lines.clear();
    if (const RecordsetPtr demands = nested(QStringLiteral("RequiredAddr")))
        for (demands->MoveFirst(); !demands->Eof(); demands->MoveNext()) {
            const Side side = NzInt(demands->Field(QStringLiteral("Sign"))) == 1 ? Debit : Credit;
            const QString kind = NzString(demands->Field(QStringLiteral("FOID")));
            bool present = false;
            for (const AddresseeLine& line : Lines[side])
                present = present || line.Kind == kind;
            if (!present)
                Lines[side].append({kind, kindName(kind), QString(), QString(), true});
        }
    if (const RecordsetPtr props = nested(QStringLiteral("BRProperties")))
        for (props->MoveFirst(); !props->Eof(); props->MoveNext()) {
            const Side side = NzInt(props->Field(QStringLiteral("Sign"))) == 1 ? Debit : Credit;
            const QString foidr = NzString(props->Field(QStringLiteral("FOIDR")));
            const QString text = NzString(props->Field(QStringLiteral("ShowString")));
            const QString kind = foidr.left(8);
            bool placed = false;
            for (AddresseeLine& line : Lines[side])
                if (!placed && line.Kind == kind && line.FOIDR.isEmpty()) {
                    line.FOIDR = foidr;
                    line.ShowString = text;
                    placed = true;
                }
            if (!placed)
                Lines[side].append({kind, kindName(kind), foidr, text, false});
        }
    Changed = false;
}

void EntryEditor::readRates() {
    Rates = Catalogue::CurrencyListFor(op_, Date, BaseIsEuro);
}

bool EntryEditor::FieldEnabled(const QString& control) const {
    static const QStringList currencyFields = {
        QStringLiteral("txtSumCurrD"), QStringLiteral("txtRateCurrD"), QStringLiteral("cmbCurrD"),
        QStringLiteral("txtSumCurrC"), QStringLiteral("txtRateCurrC"), QStringLiteral("cmbCurrC")};
    const bool currencyField = currencyFields.contains(control);
    if (currencyField && CurrenciesReadOnly)
        return false;
    if (!Restricted)
        return true;
    if (currencyField && CurrenciesEditable)
        return true;
    // A restricted card locks every field that holds a value.
    auto holds = [](const QString& text) { return !text.trimmed().isEmpty(); };
    if (control == QLatin1String("chkVATFlag"))
        return !VATFlag;
    if (control == QLatin1String("cmbVATTariff"))
        return !holds(VATTariff);
    if (control == QLatin1String("cmbTradeOperationTypes"))
        return TradeType == 0;
    if (control == QLatin1String("txtSuma"))
        return NumberFromText(Suma) == 0;
    if (control == QLatin1String("txtComment"))
        return !holds(Info);
    if (control == QLatin1String("dtpDate"))
        return !Date.isValid();
    if (control == QLatin1String("cmbAccountD"))
        return !holds(accountD_.Text()) || FirstWord(accountD_.Text()) == QLatin1String("?");
    if (control == QLatin1String("cmbAccountC"))
        return !holds(accountC_.Text()) || FirstWord(accountC_.Text()) == QLatin1String("?");
    if (control == QLatin1String("txtSumCurrD"))
        return !holds(Sides[Debit].Sum);
    if (control == QLatin1String("txtRateCurrD"))
        return !holds(Sides[Debit].Rate);
    if (control == QLatin1String("cmbCurrD"))
        return !holds(currD_.Text());
    if (control == QLatin1String("txtSumCurrC"))
        return !holds(Sides[Credit].Sum);
    if (control == QLatin1String("txtRateCurrC"))
        return !holds(Sides[Credit].Rate);
    if (control == QLatin1String("cmbCurrC"))
        return !holds(currC_.Text());
    return true;
}

bool EntryEditor::VATEnabled() const {
    return TradeType != 0 && !Restricted;
}

void EntryEditor::SideLeft(Side side) {
    Sides[side].Sum = FormatTypedNumber(Sides[side].Sum, 2, true);
    Sides[side].Rate = FormatTypedNumber(Sides[side].Rate, 9, true);
    RecomputeSum(side);
}

void EntryEditor::RecomputeSum(Side side) {
    const double sum = NumberFromText(Sides[side].Sum);
    const double rate = NumberFromText(Sides[side].Rate);
    if (sum <= 0 || rate <= 0)
        return;
    // Under a euro base the rate is foreign units per euro, so the sum is divided.
    if (BaseIsEuro)
        Suma = amountText(RoundSum(sum / rate, false));
    else
        Suma = amountText(Round(sum * rate + 0.00001, 2));
    Changed = true;
}

void EntryEditor::CurrencyChanged(Side side) {
    const QString code = currency(side).Text();
    if (code.trimmed().isEmpty() || code == Sides[side].Code)
        return;
    Sides[side].Code = code;
    Changed = true;
    if (!Rates || !Rates->Exists(code)) {
        Sides[side].Rate.clear();
        return;
    }
    const double rate = NzDouble(Rates->Item(code));
    const QString shown = Sides[side].Rate;
    bool take = shown.trimmed().isEmpty();
    if (!take && !sameSum(NumberFromText(shown) * 1e6, rate * 1e6))
        take = AskQuestion(QStringLiteral("Pakeisti valiutos kursą ?\n") + shown +
                           QStringLiteral(" -> ") + rateText(rate));
    if (take)
        Sides[side].Rate = rateText(rate);
    RecomputeSum(side);
}

void EntryEditor::DateLeft(const QDate& date) {
    if (date == Date)
        return;
    Date = date;
    Changed = true;
    readRates();
}

void EntryEditor::AccountLeft(Side side) {
    AccountOk[side] = Catalogue::CheckAccountInList(combo(side), Accounts, true, false);
    Changed = true;
    readDemands();
}

void EntryEditor::readDemands() {
    const RecordsetPtr demands = nested(QStringLiteral("RequiredAddr"));
    const QString accountD = FirstWord(accountD_.Text());
    const QString accountC = FirstWord(accountC_.Text());
    if (!demands || !AccountOk[Debit] || !AccountOk[Credit])
        return;
    const ValueResult answer = op_->Properties(
        QStringLiteral("BRRequiredAddr"),
        QStringLiteral("'") + accountD + QStringLiteral("','") + accountC + QStringLiteral("'"));
    const RecordsetPtr rows = answer.ok() ? answer.Value.toRecordset() : nullptr;
    if (!rows)
        return;
    for (demands->MoveFirst(); !demands->Eof(); demands->MoveFirst())
        if (!demands->Delete())
            break;
    for (QVector<AddresseeLine>& lines : Lines) {
        QVector<AddresseeLine> kept;
        for (AddresseeLine line : lines) {
            line.Demanded = false;
            if (!line.FOIDR.isEmpty())
                kept.append(line);
        }
        lines = kept;
    }
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
        const qint16 sign = NzInt(rows->Field(QStringLiteral("Sign")));
        const QString kind = NzString(rows->Field(QStringLiteral("FOID")));
        demands->AddNew();
        demands->SetField(QStringLiteral("Sign"), Value(sign));
        demands->SetField(QStringLiteral("FOID"), Value(kind));
        if (demands->HasField(QStringLiteral("BRGUID")))
            demands->SetField(QStringLiteral("BRGUID"), Value(GUID));
        demands->Update();
        const Side side = sign == 1 ? Debit : Credit;
        bool met = false;
        for (AddresseeLine& line : Lines[side])
            if (!met && line.Kind == kind) {
                line.Demanded = true;
                met = true;
            }
        if (!met)
            Lines[side].append({kind, kindName(kind), QString(), QString(), true});
    }
}

void EntryEditor::TradeTypeChanged(qint16 type) {
    if (TradeType == 0 && type != 0)
        VATIndication = 0;
    TradeType = type;
    Changed = true;
}

void EntryEditor::TariffChanged(const QString& text) {
    VATTariff = text;
    Changed = true;
    bool numeric = false;
    const double value = NumberFromText(text, &numeric);
    if (!numeric || value == 0) {
        VATFlag = false;
        return;
    }
    if (value > 0) {
        VATFlag = true;
        VATIndication = 1;
    }
}

void EntryEditor::SetAddressee(Side side, const QString& kind, const QString& foidr,
                               const QString& showString) {
    Changed = true;
    for (AddresseeLine& line : Lines[side])
        if (line.Kind == kind) {
            line.FOIDR = foidr;
            line.ShowString = showString;
            return;
        }
    Lines[side].append({kind, kindName(kind), foidr, showString, false});
}

void EntryEditor::ClearAddressee(Side side, int line) {
    if (line < 0 || line >= Lines[side].size())
        return;
    Changed = true;
    if (Lines[side][line].Demanded) {
        Lines[side][line].FOIDR.clear();
        Lines[side][line].ShowString.clear();
    } else {
        Lines[side].remove(line);
    }
}

QStringList EntryEditor::OfferedKinds() const {
    QStringList kinds;
    for (int i = 0; i + 8 <= AllowedKinds.size(); i += 8)
        kinds.append(AllowedKinds.mid(i, 8));
    return kinds;
}

EntryEditor::CheckOutcome EntryEditor::Check() {
    auto fail = [](const QString& message, const QString& focus) {
        ShowWarning(message);
        return CheckOutcome{false, message, focus};
    };
    const double suma = NumberFromText(Suma);
    if (suma != 0 && VATIndication > 0 && TradeType == 0)
        return fail(QStringLiteral("Nurodykite prekybos operacijos tipą."),
                    QStringLiteral("cmbTradeOperationTypes"));
    AccountOk[Debit] = Catalogue::CheckAccountInList(accountD_, Accounts, true, false);
    AccountOk[Credit] = Catalogue::CheckAccountInList(accountC_, Accounts, true, false);
    if (!AccountOk[Debit])
        return fail(QStringLiteral("Klaidinga balansinės sąskaitos reikšmė!"),
                    QStringLiteral("cmbAccountD"));
    if (!AccountOk[Credit])
        return fail(QStringLiteral("Klaidinga balansinės sąskaitos reikšmė!"),
                    QStringLiteral("cmbAccountC"));
    for (Side side : {Debit, Credit}) {
        const QString letter = side == Debit ? QStringLiteral("D") : QStringLiteral("C");
        const double sumCurr = NumberFromText(Sides[side].Sum);
        if (sumCurr <= 0)
            continue;
        if (currency(side).Text().trimmed().isEmpty())
            return fail(QStringLiteral("Nenurodytas valiutos tipas!"),
                        QStringLiteral("cmbCurr") + letter);
        if (NumberFromText(Sides[side].Rate) == 0)
            return fail(QStringLiteral("Nenurodytas valiutos kursas!"),
                        QStringLiteral("txtRateCurr") + letter);
        const double base = RoundSum(sumCurr * RateFromText(Sides[side].Rate, BaseIsEuro), false);
        if (!sameSum(base, suma))
            return fail(QStringLiteral("Suma bazine valiuta neatitinka sumai valiuta pagal kursą!"),
                        QStringLiteral("txtSumCurr") + letter);
    }

    const DictionaryPtr demands =
        UIO0201500::GetRequiredAddr(nested(QStringLiteral("RequiredAddr")));
    auto lines =
        Recordset::Create({FieldDef::Make(QStringLiteral("Sign"), FieldType::SmallInt),
                           FieldDef::Make(QStringLiteral("FOIDR"), FieldType::VarWChar, 50)});
    for (Side side : {Debit, Credit})
        for (const AddresseeLine& line : Lines[side])
            if (!line.FOIDR.isEmpty()) {
                lines->AddNew();
                lines->SetField(QStringLiteral("Sign"), Value(signOf(side)));
                lines->SetField(QStringLiteral("FOIDR"), Value(line.FOIDR));
                lines->Update();
            }
    if (!UIO0201500::CheckRequiredAddr(demands, lines))
        return fail(QStringLiteral("Nenurodyti būtini adresatai!"), QString());

    const BusinessObjectPtr bo = op_ ? op_->BO() : nullptr;
    for (Side side : {Debit, Credit})
        for (const AddresseeLine& reference : Lines[side]) {
            if (reference.Kind != kEntryKind || reference.FOIDR.isEmpty() || !bo)
                continue;
            QString client;
            for (const AddresseeLine& line : Lines[side])
                if (client.isEmpty() && (line.Kind == kFirm || line.Kind == kPerson) &&
                    line.FOIDR.size() >= 9)
                    client = line.FOIDR;
            if (client.isEmpty())
                continue;
            const QString account = FirstWord(combo(side).Text());
            const BOResult answer =
                bo->Call(QStringLiteral("DO0201500_CheckBRPointerClient"),
                         QStringLiteral("'") + reference.FOIDR + QStringLiteral("','") + account +
                             QStringLiteral("','") + client + QStringLiteral("'"));
            // A book that cannot answer the question does not refuse the entry.
            const RecordsetPtr rows = answer.Code == 0 ? answer.Data.toRecordset() : nullptr;
            if (rows && rows->RecordCount() == 0)
                return fail(QStringLiteral("Adresatas nuorodoje nesutampa su įrašo adresatu!"),
                            QString());
        }
    return {};
}

bool EntryEditor::Save() {
    LastCheck = Check();
    if (!LastCheck.Passed)
        return false;
    Entries->SetField(QStringLiteral("DateD"), Value(Date));
    Entries->SetField(QStringLiteral("Info"), Value(Info));
    Entries->SetField(QStringLiteral("AccountD"), Value(FirstWord(accountD_.Text())));
    Entries->SetField(QStringLiteral("AccountC"), Value(FirstWord(accountC_.Text())));
    Entries->SetField(QStringLiteral("SumA"), Value(NumberFromText(Suma)));

    Entries->SetField(QStringLiteral("CurrencyRateD"), Value());
    Entries->SetField(QStringLiteral("CurrencyRateC"), Value());
    if (BaseIsEuro) {
        if (NumberFromText(Sides[Debit].Rate) > 0)
            Entries->SetField(QStringLiteral("CurrencyRateD"), Value(ValDot(Sides[Debit].Rate)));
        if (NumberFromText(Sides[Credit].Rate) > 0)
            Entries->SetField(QStringLiteral("CurrencyRateC"), Value(ValDot(Sides[Credit].Rate)));
    }

    Entries->SetField(QStringLiteral("RestoringSign"), Value(qint16(1)));
    Entries->SetField(QStringLiteral("VATFlag"), Value(qint16(0)));
    Entries->SetField(QStringLiteral("VATTariff"), Value());
    Entries->SetField(QStringLiteral("VATFlag"), Value(qint16(VATFlag ? 1 : 0)));
    Entries->SetField(QStringLiteral("VATIndication"), Value(VATIndication));
    bool numericTariff = false;
    const double tariff = NumberFromText(VATTariff, &numericTariff);
    if (numericTariff)
        Entries->SetField(QStringLiteral("VATTariff"), Value(tariff));
    Entries->SetField(QStringLiteral("TradeOperationType"), Value(TradeType));

    if (const RecordsetPtr props = nested(QStringLiteral("BRProperties"))) {
        for (props->MoveFirst(); !props->Eof(); props->MoveFirst())
            if (!props->Delete())
                break;
        for (Side side : {Debit, Credit})
            for (const AddresseeLine& line : Lines[side]) {
                if (line.FOIDR.isEmpty())
                    continue;
                props->AddNew();
                props->SetField(QStringLiteral("BRGUID"), Value(GUID));
                props->SetField(QStringLiteral("Sign"), Value(signOf(side)));
                props->SetField(QStringLiteral("FOIDR"), Value(line.FOIDR));
                props->SetField(QStringLiteral("ShowString"), Value(line.ShowString.left(800)));
                props->Update();
            }
    }

    if (const RecordsetPtr currencies = nested(QStringLiteral("BRCurrency"))) {
        for (currencies->MoveFirst(); !currencies->Eof(); currencies->MoveFirst())
            if (!currencies->Delete())
                break;
        for (Side side : {Debit, Credit}) {
            QString code = currency(side).Text();
            if (BaseIsEuro && code.trimmed() == QLatin1String("EUR"))
                code = QStringLiteral("   ");
            const double sum = NumberFromText(Sides[side].Sum);
            if (code.trimmed().isEmpty() || sum <= 0)
                continue;
            currencies->AddNew();
            currencies->SetField(QStringLiteral("BRGUID"), Value(GUID));
            currencies->SetField(QStringLiteral("Sign"), Value(signOf(side)));
            currencies->SetField(QStringLiteral("RateCurr"),
                                 Value(RateFromText(Sides[side].Rate, BaseIsEuro)));
            currencies->SetField(QStringLiteral("SumCurr"), Value(sum));
            currencies->SetField(QStringLiteral("FCurrencyCode"), Value(code.trimmed()));
            currencies->Update();
        }
    }
    Entries->Update();
    Changed = false;
    if (Result == 0)
        Result = 1;
    return true;
}

bool EntryEditor::SaveWith(qint16 result) {
    if (!Save())
        return false;
    Result = result;
    return true;
}

bool EntryEditor::Move(int step) {
    if (!Entries)
        return false;
    if (Changed && !AskQuestion(QStringLiteral("Palikti be išsaugojimo ?")))
        return false;
    Entries->SetFilter(QString());
    QStringList guids;
    for (Entries->MoveFirst(); !Entries->Eof(); Entries->MoveNext())
        guids.append(NzString(Entries->Field(QStringLiteral("GUID"))));
    const int at = guids.indexOf(GUID) + step;
    const bool moved = at >= 0 && at < guids.size() && guids.indexOf(GUID) >= 0;
    if (moved)
        GUID = guids.at(at);
    Entries->SetFilter(QStringLiteral("GUID = '") + GUID + QStringLiteral("'"));
    if (moved)
        ShowRow();
    return moved;
}

} // namespace orvo
