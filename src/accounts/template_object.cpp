#include "accounts/template_object.h"

#include "accounts/template_rules.h"
#include "frame/messages.h"
#include "frame/methods_convention.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"

namespace orvo {

namespace {

qint64 idOf(const Value& v) {
    return v.isNull() ? 0 : static_cast<qint64>(v.toDouble());
}

QString quoted(const QString& text) {
    QString t = text;
    t.replace(QLatin1Char('\''), QStringLiteral("''"));
    return QStringLiteral("'") + t + QStringLiteral("'");
}

// A parameter text as the caller gave it, or the single value put in quotes when it came
// bare ("2410" -> "'2410'").
QString asParameterText(const QString& parameters) {
    const QString t = parameters.trimmed();
    if (t.startsWith(QLatin1Char('\'')))
        return t;
    return quoted(t);
}

ValueResult objectResult(const OrvoObjectUIOPtr& object) {
    return object ? ValueResult::Of(Value(std::static_pointer_cast<ObjectBase>(object)))
                  : ValueResult::Of(Value());
}

} // namespace

const QString UIO0201600::kCode = QStringLiteral("O0201600");
const QString UIO0201600::kOpeningBalances = QStringLiteral("Pradiniai likučiai");

UIO0201600::UIO0201600()
    : OrvoObjectUIOBase(kCode, QStringLiteral("UIO0201600"),
                        QStringLiteral("Finansinių operacijų šablonai")) {}

OrvoObjectUIOPtr UIO0201600::TemplateObject(qint64 id) const {
    if (id <= 0 || !BO())
        return nullptr;
    auto object = std::make_shared<UIO0201600>();
    object->Core().SetBO(BO());
    object->SetUI(UI());
    object->SetOIDR(kCode + QString::number(id));
    if (!object->Read().ok())
        return nullptr;
    return object;
}

ValueResult UIO0201600::parent() {
    return objectResult(TemplateObject(idOf(Field(QStringLiteral("ParentID")))));
}

ValueResult UIO0201600::enabledAddressee(const QString& parameters) {
    const BusinessObjectPtr bo = BO();
    BOResult r;
    if (bo)
        r = bo->Call(QStringLiteral("DO0201600_GetEnabledAddressee"), asParameterText(parameters));
    else
        r = BOResult::Failure(codes::RefusedNoWarning, QStringLiteral("knyga neatidaryta."));
    if (r.Code != 0) {
        const QString text = QStringLiteral("Klaida!") + MethodsConvention::LineBreak() +
                             QStringLiteral("GetEnabledAddressee:") +
                             MethodsConvention::LineBreak() + r.Text;
        ShowError(text);
        return ValueResult::Failure(r.Code, text);
    }
    return ValueResult::Of(r.Data);
}

ValueResult UIO0201600::accountList() {
    if (accounts_)
        return ValueResult::Of(Value(accounts_));
    const BusinessObjectPtr bo = BO();
    if (!bo)
        return PropertiesConvention::Refuse(codes::RefusedNoWarning,
                                            QStringLiteral("AccountList: knyga neatidaryta."));
    const BOResult r = bo->Call(QStringLiteral("GetAccountList"), QStringLiteral("None"));
    if (r.Code != 0)
        return PropertiesConvention::Refuse(r.Code, r.Text);
    auto rs = Recordset::Create({FieldDef::Make(QStringLiteral("Account"), FieldType::VarWChar, 30),
                                 FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 255),
                                 FieldDef::Make(QStringLiteral("Likutis"), FieldType::Boolean)});
    // The opening balances come first: a template may post against them.
    rs->AddNew();
    rs->SetField(QStringLiteral("Account"), QStringLiteral("0"));
    rs->SetField(QStringLiteral("Name"), kOpeningBalances);
    rs->SetField(QStringLiteral("Likutis"), Value(true));
    rs->Update();
    if (const RecordsetPtr chart = r.Data.toRecordset()) {
        for (chart->MoveFirst(); !chart->Eof(); chart->MoveNext()) {
            rs->AddNew();
            rs->SetField(QStringLiteral("Account"), chart->Field(QStringLiteral("Account")));
            rs->SetField(QStringLiteral("Name"), chart->Field(QStringLiteral("Name")));
            rs->SetField(QStringLiteral("Likutis"), Value(false));
            rs->Update();
        }
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    accounts_ = rs;
    return ValueResult::Of(Value(rs));
}

ValueResult UIO0201600::templateRows() {
    const ValueResult list = accountList();
    const RecordsetPtr accounts = list.ok() ? list.Value.toRecordset() : nullptr;
    auto rs =
        Recordset::Create({FieldDef::Make(QStringLiteral("GUID"), FieldType::VarWChar, 38),
                           FieldDef::Make(QStringLiteral("AccountD"), FieldType::VarWChar),
                           FieldDef::Make(QStringLiteral("AccountDMark"), FieldType::VarWChar),
                           FieldDef::Make(QStringLiteral("AccountDName"), FieldType::VarWChar),
                           FieldDef::Make(QStringLiteral("AccountC"), FieldType::VarWChar),
                           FieldDef::Make(QStringLiteral("AccountCMark"), FieldType::VarWChar),
                           FieldDef::Make(QStringLiteral("AccountCName"), FieldType::VarWChar),
                           FieldDef::Make(QStringLiteral("Factor"), FieldType::Double)});
    const RecordsetPtr acc = Field(QStringLiteral("BRTemplateAcc")).toRecordset();
    if (acc) {
        const qint64 mark = acc->Bookmark();
        for (acc->MoveFirst(); !acc->Eof(); acc->MoveNext()) {
            const TemplateAccountShown d =
                ShowTemplateAccount(accounts, acc->Field(QStringLiteral("AccountD")).toString());
            const TemplateAccountShown c =
                ShowTemplateAccount(accounts, acc->Field(QStringLiteral("AccountC")).toString());
            rs->AddNew();
            rs->SetField(QStringLiteral("GUID"), acc->Field(QStringLiteral("GUID")));
            rs->SetField(QStringLiteral("AccountD"), d.Account);
            rs->SetField(QStringLiteral("AccountDMark"), d.Mark);
            rs->SetField(QStringLiteral("AccountDName"), d.Name);
            rs->SetField(QStringLiteral("AccountC"), c.Account);
            rs->SetField(QStringLiteral("AccountCMark"), c.Mark);
            rs->SetField(QStringLiteral("AccountCName"), c.Name);
            rs->SetField(QStringLiteral("Factor"), acc->Field(QStringLiteral("Factor")));
            rs->Update();
        }
        if (mark >= 0)
            acc->SetBookmark(mark);
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return ValueResult::Of(Value(rs));
}

ValueResult UIO0201600::objectForm(const QString& parameters) {
    const OrvoServicesPtr services = OrvoS();
    const FormsPtr forms = services ? services->FormsService() : nullptr;
    const QString formName = QStringLiteral("frmBRTemplate");
    const OrvoFormPtr form = forms ? forms->CreateForm(formName) : nullptr;
    if (!form)
        return PropertiesConvention::Refuse(
            codes::Refused,
            QStringLiteral("Langas „%1“ neprieinamas: veiksmo atlikti negalima.").arg(formName));
    const QString parent = parameters.section(QLatin1Char(';'), 0, 0).trimmed();
    if (!Core().IsStored() && parent.startsWith(kCode) && parent.size() > kCode.size())
        SetField(QStringLiteral("ParentID"), Value(double(parent.mid(kCode.size()).toLongLong())));
    form->SetOrvoObjectUIO(shared_from_this());
    QString clicked = parameters.section(QLatin1Char(';'), 1);
    clicked.replace(QStringLiteral("@|@"), QStringLiteral(";"));
    form->SetClickedParameters(clicked);
    return ValueResult::Of(Value(std::static_pointer_cast<ObjectBase>(form)));
}

ValueResult UIO0201600::Properties(const QString& name, const QString& parameters) {
    if (name == QLatin1String("Parent"))
        return parent();
    if (name == QLatin1String("EnabledAddressee"))
        return enabledAddressee(parameters);
    if (name == QLatin1String("AccountList"))
        return accountList();
    if (name == QLatin1String("TemplateRows"))
        return templateRows();
    if (name == QLatin1String("GetObjectForm"))
        return objectForm(parameters);
    const QString text = parameters.trimmed().isEmpty() ? quoted(OIDR()) : parameters;
    return PropertiesRules().Query(BO().get(), QStringLiteral("Get") + name, text);
}

ValueResult UIO0201600::Methods(const QString& name, const ValueArray& parameters) {
    if (name.compare(QLatin1String("SetRsFields"), Qt::CaseInsensitive) == 0)
        return OrvoObjectUIOBase::Methods(name, parameters);
    QString method;
    QString text;
    if (name.compare(QLatin1String("DeleteTemplateSet"), Qt::CaseInsensitive) == 0) {
        if (parameters.size() > 1)
            return MethodsConvention::WrongParameters(QStringLiteral("DeleteTemplateSet"));
        method = QStringLiteral("DeleteTemplateSet");
        text = quoted(parameters.isEmpty() ? OIDR() : parameters.first().toString());
    } else {
        method = QStringLiteral("DO0201600_") + name;
    }
    const BusinessObjectPtr bo = BO();
    if (!bo)
        return ValueResult::Failure(codes::Refused,
                                    QStringLiteral("Method %1: nėra verslo objekto.").arg(name));
    const BOResult r = bo->Call(method, text.isEmpty() ? QStringLiteral("None") : text);
    if (r.Code != 0) {
        ShowWarning(r.Text);
        return ValueResult::Failure(r.Code, r.Text);
    }
    return ValueResult::Of(r.Data);
}

ResultRecord UIO0201600::saveAsCopy(const QString& newMode) {
    const BusinessObjectPtr bo = BO();
    if (!bo)
        return ResultRecord::Failure(codes::RefusedNoWarning,
                                     QStringLiteral("AddBRTemplateSet: knyga neatidaryta."));
    const QString object = newMode.section(QLatin1Char('|'), 0, 0).trimmed();
    const QString key = newMode.section(QLatin1Char('|'), 1).trimmed();
    const qint64 group = idOf(Field(QStringLiteral("ParentID")));
    const QString name = Field(QStringLiteral("Name")).toString().trimmed();
    const QString comment = Field(QStringLiteral("Comment")).toString();
    const BOResult copied = bo->Call(QStringLiteral("AddBRTemplateSet"),
                                     quoted(object) + QLatin1Char(',') + quoted(key) +
                                         QLatin1Char(',') + QString::number(group));
    if (copied.Code != 0)
        return ResultRecord::Failure(copied.Code, copied.Text);
    const RecordsetPtr answer = copied.Data.toRecordset();
    if (!answer || answer->RecordCount() == 0)
        return ResultRecord::Failure(codes::RefusedNoWarning,
                                     QStringLiteral("AddBRTemplateSet: kopija negauta."));
    answer->MoveFirst();
    SetOIDR(answer->Field(QStringLiteral("OIDR")).toString());
    const ResultRecord read = Read();
    if (!read.ok())
        return read;
    if (name.isEmpty() && comment.isEmpty())
        return ResultRecord::Success();
    if (!name.isEmpty())
        SetField(QStringLiteral("Name"), name);
    if (!comment.isEmpty())
        SetField(QStringLiteral("Comment"), comment);
    return Core().Save();
}

ResultRecord UIO0201600::Save(const Value& rs2, const Value& rs3) {
    const QString newMode = Field(QStringLiteral("NewMode")).toString();
    if (!Core().IsStored() && newMode.contains(QLatin1Char('|')))
        return saveAsCopy(newMode);
    return Core().Save(rs2, rs3);
}

} // namespace orvo
