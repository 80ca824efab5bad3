#include "operations/operation_object.h"

#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "frame/catalogue_recordsets.h"
#include "frame/catalogue_rights_forms.h"
#include "frame/messages.h"
#include "frame/methods_convention.h"
#include "operations/auto_numbering.h"
#include "operations/command_failure.h"
#include "operations/command_parameters.h"
#include "operations/entry_commands.h"
#include "operations/form_access.h"
#include "operations/record_commands.h"
#include "operations/selection_commands.h"
#include "operations/window_commands.h"

namespace orvo {

namespace {

const QString kOperationCode = QStringLiteral("O0201500");

QString quoted(const QString& text) {
    return QStringLiteral("'") + text + QStringLiteral("'");
}

// "D" for the debit side (Sign 1), "C" for any other.
QString sideLetter(const Value& sign) {
    return NzInt(sign) == 1 ? QStringLiteral("D") : QStringLiteral("C");
}

} // namespace

UIO0201500::UIO0201500(const QString& kind)
    : OrvoObjectUIOBase(kOperationCode, QStringLiteral("UIO0201500"),
                        QStringLiteral("Finansinė operacija"),
                        PropertiesConvention(PlainQueries(), ParametrisedQueries())) {
    Core().SetOID(kind);
    Core().SetOType(kind);
}

std::shared_ptr<UIO0201500> UIO0201500::Create(const QString& kind) {
    return std::make_shared<UIO0201500>(kind);
}

QStringList UIO0201500::Kinds() {
    return {QStringLiteral("O0201500"), QStringLiteral("O0201501"), QStringLiteral("O0201502"),
            QStringLiteral("O0201503"), QStringLiteral("O0201504"), QStringLiteral("O0201505"),
            QStringLiteral("O0201506")};
}

QStringList UIO0201500::PlainQueries() {
    return {QStringLiteral("MyFirmAccounts"), QStringLiteral("SelectParameters"),
            QStringLiteral("TelebankList"), QStringLiteral("FirmsAndUsers")};
}

// The component's parametrised names, and BROperLog: the change protocol that the
// protocol window lists under the stamps.
QStringList UIO0201500::ParametrisedQueries() {
    return {QStringLiteral("Parent"),
            QStringLiteral("BRRequiredAddr"),
            QStringLiteral("BROperSelect"),
            QStringLiteral("RelatedBR"),
            QStringLiteral("ClientAccounts"),
            QStringLiteral("TemplateList"),
            QStringLiteral("TemplateAccAndAddr"),
            QStringLiteral("Number"),
            QStringLiteral("CurrencyByCode"),
            QStringLiteral("Debts1"),
            QStringLiteral("Debts2"),
            QStringLiteral("Debts3"),
            QStringLiteral("ClientLastAccount"),
            QStringLiteral("PaymentPreview"),
            QStringLiteral("Account"),
            QStringLiteral("AccountsTotal"),
            QStringLiteral("AccountTotal"),
            QStringLiteral("CoverFirms"),
            QStringLiteral("BankByAccount"),
            QStringLiteral("BRPropertiesByAcc"),
            QStringLiteral("BROperMaxNumber"),
            QStringLiteral("CheckInfluenceType"),
            QStringLiteral("Order_BROpers"),
            QStringLiteral("Offer_BROpers"),
            QStringLiteral("BROperAddressees"),
            QStringLiteral("Transfers"),
            QStringLiteral("TelebankExport"),
            QStringLiteral("CommentList"),
            QStringLiteral("LastPaymentOrder"),
            QStringLiteral("AutoNumber"),
            QStringLiteral("CoversInFuture"),
            QStringLiteral("SalaryConstants"),
            QStringLiteral("AdvanceOverExpenses"),
            QStringLiteral("DebtsByDebit"),
            QStringLiteral("DebtsByCredit"),
            QStringLiteral("Debts1New"),
            QStringLiteral("BROperLog")};
}

OrvoObjectUIOPtr UIO0201500::Self() {
    return weak_from_this().lock();
}

RecordsetPtr UIO0201500::Entries() const {
    const RecordsetPtr rs = RsFields();
    return rs ? rs->Field(QStringLiteral("BR")).toRecordset() : nullptr;
}

// ---- Properties served by the class ------------------------------------------------

std::optional<ValueResult> UIO0201500::OwnProperty(const QString& name, const QString& parameters) {
    if (name == QLatin1String("CurrencyList"))
        return currencyList(parameters);
    if (name == QLatin1String("AddresseeList"))
        return addresseeList();
    if (name == QLatin1String("AccountList"))
        return accountList();
    if (name == QLatin1String("GetObjectForm"))
        return getObjectForm(parameters);
    return std::nullopt;
}

ValueResult UIO0201500::currencyList(const QString& parameters) {
    // The rates depend on the date, so the list is read again for every call.
    currencyList_.reset();
    const QString date = parameters.isEmpty() ? QStringLiteral("1990.01.01") : parameters;
    const BusinessObjectPtr bo = BO();
    if (!bo)
        return PropertiesConvention::Refuse(codes::RefusedNoWarning,
                                            QStringLiteral("CurrencyList: no business object"));
    const BOResult r = bo->Call(QStringLiteral("GetCurrencyList"), quoted(date));
    if (r.Code != 0)
        return PropertiesConvention::Refuse(r.Code, r.Text);
    const RecordsetPtr rs = r.Data.toRecordset();
    if (!rs || rs->RecordCount() == 0)
        return PropertiesConvention::Refuse(codes::Refused,
                                            QStringLiteral("No any currency in DB..."));
    currencyList_ = rs;
    return ValueResult::Of(Value(rs));
}

ValueResult UIO0201500::addresseeList() {
    if (addresseeList_)
        return ValueResult::Of(Value(addresseeList_));
    const BusinessObjectPtr bo = BO();
    if (!bo)
        return PropertiesConvention::Refuse(codes::RefusedNoWarning,
                                            QStringLiteral("AddresseeList: no business object"));
    const BOResult r = bo->Call(QStringLiteral("GetAddresseeList"), QStringLiteral("None"));
    if (r.Code != 0)
        return PropertiesConvention::Refuse(r.Code, r.Text);
    addresseeList_ = r.Data.toRecordset();
    return ValueResult::Of(Value(addresseeList_));
}

ValueResult UIO0201500::accountList() {
    if (accounts_ && accounts_->Count() > 0)
        return ValueResult::Of(Value(accounts_));
    const BusinessObjectPtr bo = BO();
    if (!bo)
        return PropertiesConvention::Refuse(codes::RefusedNoWarning,
                                            QStringLiteral("AccountList: no business object"));
    const BOResult r = bo->Call(QStringLiteral("GetAccountList"), QStringLiteral("None"));
    // A chart that cannot be read leaves no dictionary, so that TestAccount lets every
    // account through rather than refusing all of them.
    if (r.Code != 0)
        return PropertiesConvention::Refuse(r.Code, r.Text);
    accounts_ = Dictionary::Create();
    if (const RecordsetPtr rs = r.Data.toRecordset()) {
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
            accounts_->Add(NzString(rs->Field(QStringLiteral("Account"))),
                           Value(NzString(rs->Field(QStringLiteral("Name")))));
    }
    return ValueResult::Of(Value(accounts_));
}

ValueResult UIO0201500::getObjectForm(const QString& parameters) {
    const QStringList parts = parameters.split(QLatin1Char(';'));
    const bool isNew = !Core().IsStored();
    OrvoFormPtr form;
    if (isNew) {
        form = Catalogue::NewFormForKind(OID());
        if (!form) {
            const ValueResult refusal = FormAccess::Unavailable(Catalogue::FormNameForKind(OID()));
            return PropertiesConvention::Refuse(refusal.Code, refusal.Text);
        }
        form->SetOrvoObjectUIO(Self());
    } else {
        OrvoObjectUIOPtr self = Self();
        form = Catalogue::OpenOperationForm(OIDR(), self);
    }
    ValueResult result = ValueResult::Of(Value(ObjectPtr(form)));
    if (isNew && form) {
        SetOType(Core().OID());
        SetField(QStringLiteral("BROperGroupID"), Value(qint32(NumberFromText(parts.value(0)))));
        QString clicked = parts.value(1);
        clicked.replace(QStringLiteral("@|@"), QStringLiteral(";"));
        form->SetClickedParameters(clicked);
    }
    return result;
}

// ---- Save ---------------------------------------------------------------------------

ResultRecord UIO0201500::Save(const Value& rs2, const Value& rs3) {
    // The demands of an entry are worked out again from the accounts; they are not
    // stored with it.
    if (const RecordsetPtr br = Entries(); br && br->RecordCount() > 0) {
        if (const RecordsetPtr demands = br->Field(QStringLiteral("RequiredAddr")).toRecordset())
            demands->CancelBatch();
    }

    const ResultRecord result = Core().Save(rs2, rs3);

    if (result.Code != 0 && OIDR().size() < 9) {
        // A new operation that failed to store must keep what the user entered: its rows
        // go into a fresh blank structure, where they all stand as new for the next try.
        const RecordsetPtr kept = RsFields();
        if (const RecordsetPtr keptEntries = Entries())
            keptEntries->SetFilter(QString());
        const ResultRecord read = Core().Read();
        if (read.Code != 0) {
            Core().Methods(QStringLiteral("SetRsFields"), ValueArray{Value(kept)});
        } else {
            const RecordsetPtr fresh = RsFields();
            fresh->MoveFirst();
            if (!fresh->Eof())
                fresh->Delete();
            Catalogue::ForEachFieldCopy(kept, fresh);
        }
    }
    return result;
}

// ---- Checks of an entry -------------------------------------------------------------

DictionaryPtr UIO0201500::GetRequiredAddr(const RecordsetPtr& rsRequiredAddr) {
    DictionaryPtr map = Dictionary::Create();
    if (!rsRequiredAddr)
        return map;
    for (rsRequiredAddr->MoveFirst(); !rsRequiredAddr->Eof(); rsRequiredAddr->MoveNext()) {
        const QString foid = NzString(rsRequiredAddr->Field(QStringLiteral("FOID")));
        const QString key = sideLetter(rsRequiredAddr->Field(QStringLiteral("Sign"))) + foid;
        if (!map->Exists(key))
            map->Add(key, Value(foid));
    }
    return map;
}

bool UIO0201500::CheckRequiredAddr(const DictionaryPtr& dicRequiredAddr,
                                   const RecordsetPtr& rsBRProperties) {
    if (!dicRequiredAddr || dicRequiredAddr->Count() == 0)
        return true;
    if (!rsBRProperties)
        return false;
    if (rsBRProperties->RecordCount() < dicRequiredAddr->Count())
        return false;
    int met = 0;
    for (rsBRProperties->MoveFirst(); !rsBRProperties->Eof(); rsBRProperties->MoveNext()) {
        const QString key = sideLetter(rsBRProperties->Field(QStringLiteral("Sign"))) +
                            NzString(rsBRProperties->Field(QStringLiteral("FOIDR"))).left(8);
        if (dicRequiredAddr->Exists(key))
            ++met;
    }
    return met == dicRequiredAddr->Count();
}

QString UIO0201500::CheckValiuta(const RecordsetPtr& rsBRCurrency, double sumA) {
    QString fault;
    if (!rsBRCurrency)
        return fault;
    for (rsBRCurrency->MoveFirst(); !rsBRCurrency->Eof() && fault.isEmpty();
         rsBRCurrency->MoveNext()) {
        const double sumCurr = NzDouble(rsBRCurrency->Field(QStringLiteral("SumCurr")));
        if (!(sumCurr > 0))
            continue;
        const double rate = NzDouble(rsBRCurrency->Field(QStringLiteral("RateCurr")));
        if (NzString(rsBRCurrency->Field(QStringLiteral("FCurrencyCode"))).trimmed().isEmpty())
            fault = QStringLiteral("Nenurodytas valiutos tipas!");
        else if (rate == 0)
            fault = QStringLiteral("Nenurodytas valiutos kursas!");
        else if (Round(sumCurr * rate + BaseSumAddend, 2) != Round(sumA, 2))
            fault = QStringLiteral("Suma bazine valiuta neatitinka sumai valiuta pagal kursą!");
    }
    return fault;
}

ValueResult UIO0201500::TestAccount(const ValueArray& parameters) {
    if (parameters.isEmpty())
        return ValueResult::Failure(codes::Refused,
                                    QStringLiteral("Not set parameter for TestAccount method !"));
    const QString account = parameters.at(0).toString();
    ValueResult result = ValueResult::Of(Value(true));
    if (!accounts_ || accounts_->Count() == 0) {
        const ValueResult loaded = Properties(QStringLiteral("AccountList"), QString());
        result.Code = loaded.Code;
        result.Text = loaded.Text;
    }
    // The pseudo-account of opening balances is never a valid posting account.
    if (account == QLatin1String("0")) {
        result.Value = Value(false);
        return result;
    }
    result.Value = Value(accounts_ ? accounts_->Exists(account) : true);
    return result;
}

ValueResult UIO0201500::TestOper(const ValueArray& parameters) {
    CommandParameters p(parameters);
    if (!RsFields())
        return CommandFailure::NoOperationRow().ToResult();
    const RecordsetPtr br = Entries();
    if (!br)
        return CommandFailure::Missing(QStringLiteral("BR")).ToResult();
    const QString guid = p.Text(0);
    const bool warn = p.Bool(1);
    if (p.Failed())
        return p.Failure()->ToResult();
    if (!guid.isEmpty())
        br->SetFilter(QStringLiteral("GUID = '") + guid + QStringLiteral("'"));

    for (br->MoveFirst(); !br->Eof(); br->MoveNext()) {
        const double sumA = NzDouble(br->Field(QStringLiteral("SumA")));
        const QString accountD = NzString(br->Field(QStringLiteral("AccountD")));
        const QString accountC = NzString(br->Field(QStringLiteral("AccountC")));
        QString fault;
        if (!(sumA > 0)) {
            fault = QStringLiteral("Klaidinga sumos reikšmė!");
        } else if (!TestAccount({Value(accountD)}).Value.toBool() ||
                   !TestAccount({Value(accountC)}).Value.toBool()) {
            fault = QStringLiteral("Klaidinga balansinės sąskaitos reikšmė!");
        } else {
            fault = CheckValiuta(br->Field(QStringLiteral("BRCurrency")).toRecordset(), sumA);
            if (fault.isEmpty() &&
                !CheckRequiredAddr(
                    GetRequiredAddr(br->Field(QStringLiteral("RequiredAddr")).toRecordset()),
                    br->Field(QStringLiteral("BRProperties")).toRecordset()))
                fault = QStringLiteral("Nenurodyti būtini adresatai!");
        }
        if (!fault.isEmpty()) {
            return {warn ? codes::Refused : codes::RefusedNoWarning,
                    fault + MethodsConvention::LineBreak() + accountD + QStringLiteral(" ") +
                        accountC + QStringLiteral(" ") + FormatNumberLt(sumA, 2),
                    Value(false)};
        }
    }
    return ValueResult::Of(Value(true));
}

// ---- Methods ------------------------------------------------------------------------

ValueResult UIO0201500::Methods(const QString& name, const ValueArray& parameters) {
    ValueResult result = dispatch(name, parameters);
    // A refusal is shown here, so that a caller that ignores Code still tells the user.
    if (result.Code == codes::Refused) {
        ShowWarning(result.Text);
        result.Value = Value();
    }
    return result;
}

ValueResult UIO0201500::dispatch(const QString& name, const ValueArray& parameters) {
    const int n = parameters.size();
    if (name == QLatin1String("GetCommentList"))
        return WindowCommands(*this).GetCommentList(parameters);
    if (name == QLatin1String("SaveAutoNumber")) {
        if (n != 2)
            return MethodsConvention::WrongParameters(name);
        return AutoNumbering(*this).SaveAutoNumber(parameters);
    }
    if (name == QLatin1String("CheckAutoNumber"))
        return AutoNumbering(*this).CheckAutoNumber();
    if (name == QLatin1String("GetAutoNumber")) {
        if (n != 0 && n != 2)
            return MethodsConvention::WrongParameters(name);
        return AutoNumbering(*this).GetAutoNumber(parameters);
    }
    if (name == QLatin1String("CreateBR"))
        return EntryCommands(*this).CreateBR(parameters);
    if (name == QLatin1String("AddTemplate")) {
        if (!MethodsConvention::CountIn(parameters, 3, 12))
            return MethodsConvention::WrongParameters(QStringLiteral("AddTemplate_0"));
        return EntryCommands(*this).AddTemplate(parameters);
    }
    if (name == QLatin1String("Debts")) {
        if (!MethodsConvention::CountIn(parameters, 6, 10))
            return MethodsConvention::WrongParameters(name);
        return SelectionCommands(*this).Debts(parameters);
    }
    if (name == QLatin1String("BROperSelect")) {
        if (n != 4)
            return MethodsConvention::WrongParameters(name);
        return SelectionCommands(*this).BROperSelect(parameters);
    }
    if (name == QLatin1String("AddBR")) {
        if (!MethodsConvention::CountIn(parameters, 4, 17))
            return MethodsConvention::WrongParameters(QStringLiteral("AddBR_0"));
        return EntryCommands(*this).AddBR(parameters);
    }
    if (name == QLatin1String("TestAccount"))
        return TestAccount(parameters);
    if (name == QLatin1String("TestOper"))
        return TestOper(parameters);
    if (name == QLatin1String("ShowBR"))
        return WindowCommands(*this).ShowBR(parameters);
    if (name == QLatin1String("DeleteBR")) {
        if (!MethodsConvention::CountIn(parameters, 1, 3))
            return MethodsConvention::WrongParameters(QStringLiteral("CurrencyRates_0"));
        return EntryCommands(*this).DeleteBR(parameters);
    }
    if (name == QLatin1String("CreateProtocol"))
        return RecordCommands(*this).CreateProtocol();
    if (name == QLatin1String("ShowBROper"))
        return WindowCommands(*this).ShowBROper();
    if (name == QLatin1String("GetCurrencyList")) {
        if (n > 2)
            return MethodsConvention::WrongParameters(name);
        return RecordCommands(*this).GetCurrencyList(parameters);
    }
    if (name == QLatin1String("CurrencyRates")) {
        if (n != 0 && n != 2)
            return MethodsConvention::WrongParameters(QStringLiteral("CurrencyRates_0"));
        return RecordCommands(*this).CurrencyRates(parameters);
    }
    if (name == QLatin1String("ShowProtocol"))
        return WindowCommands(*this).ShowProtocol();
    if (name == QLatin1String("CheckContractSums"))
        return RecordCommands(*this).CheckContractSums();
    // The core's own named commands (SetRsFields), and the refusal of unknown ones.
    return Core().Methods(name, parameters);
}

} // namespace orvo
