#include "accounts/account_plan_object.h"

#include "frame/messages.h"
#include "frame/methods_convention.h"

namespace orvo {

namespace {

const QString kAccountCode = QStringLiteral("O0200401");

qint64 idOf(const Value& v) {
    return v.isNull() ? 0 : static_cast<qint64>(v.toDouble());
}

ValueResult objectResult(const OrvoObjectUIOPtr& object) {
    return object ? ValueResult::Of(Value(std::static_pointer_cast<ObjectBase>(object)))
                  : ValueResult::Of(Value());
}

} // namespace

UIO0200400::UIO0200400()
    : OrvoObjectUIOBase(kAccountCode, QStringLiteral("UIO0200400"),
                        QStringLiteral("Sąskaitų planas")) {}

OrvoObjectUIOPtr UIO0200400::AccountObject(qint64 id) const {
    if (id <= 0 || !BO())
        return nullptr;
    auto object = std::make_shared<UIO0200400>();
    object->Core().SetBO(BO());
    object->SetUI(UI());
    object->SetOIDR(kAccountCode + QString::number(id));
    if (!object->Read().ok())
        return nullptr;
    return object;
}

ValueResult UIO0200400::parent() {
    return objectResult(AccountObject(idOf(Field(QStringLiteral("ParentID")))));
}

ValueResult UIO0200400::classAbove() {
    const OrvoObjectUIOPtr up = AccountObject(idOf(Field(QStringLiteral("ParentID"))));
    if (!up)
        return ValueResult::Of(Value());
    const QString ownCode = up->Field(QStringLiteral("OwnCode")).toString();
    if (ownCode.isEmpty())
        return ValueResult::Of(Value());
    const qint64 classId = ownCode.section(QLatin1Char('*'), 0, 0).toLongLong();
    return objectResult(AccountObject(classId));
}

ValueResult UIO0200400::newAccount() {
    const Value newId = Field(QStringLiteral("NewID"));
    if (newId.isNull())
        return ValueResult::Of(Value(QString()));
    const OrvoObjectUIOPtr target = AccountObject(idOf(newId));
    if (!target) {
        // The matching account was deleted meanwhile: forget it.
        SetField(QStringLiteral("NewID"), Value());
        return ValueResult::Of(Value(QString()));
    }
    return ValueResult::Of(
        Value(QString(target->Field(QStringLiteral("Account")).toString() + QLatin1Char(' ') +
                      target->Field(QStringLiteral("Name")).toString())));
}

ValueResult UIO0200400::Properties(const QString& name, const QString& parameters) {
    Q_UNUSED(parameters);
    if (name == QLatin1String("Parent"))
        return parent();
    if (name == QLatin1String("Class"))
        return classAbove();
    if (name == QLatin1String("NewAccount"))
        return newAccount();
    return PropertiesRules().Query(BO().get(), QStringLiteral("DO0200401_Get") + name,
                                   QStringLiteral("'") + OIDR() + QStringLiteral("'"));
}

ValueResult UIO0200400::Methods(const QString& name, const ValueArray& parameters) {
    if (name.compare(QLatin1String("SetRsFields"), Qt::CaseInsensitive) == 0)
        return OrvoObjectUIOBase::Methods(name, parameters);
    QString method;
    QString text;
    if (name.compare(QLatin1String("MoveAccountDown"), Qt::CaseInsensitive) == 0) {
        if (!MethodsConvention::CountIs(parameters, 1))
            return MethodsConvention::WrongParameters(QStringLiteral("MoveAccountDown"));
        method = QStringLiteral("DO0200401_MoveAccountDown");
        text = QStringLiteral("'") + parameters.first().toString() + QStringLiteral("'");
    } else if (name.compare(QLatin1String("Convert"), Qt::CaseInsensitive) == 0) {
        method = QStringLiteral("DO0200401_Convert");
    } else {
        method = QStringLiteral("DO0200401_") + name;
    }
    const BusinessObjectPtr bo = BO();
    if (!bo)
        return ValueResult::Failure(codes::Refused,
                                    QStringLiteral("Method %1: nėra verslo objekto.").arg(name));
    const BOResult r = bo->Call(method, text);
    if (r.Code != 0) {
        ShowWarning(r.Text);
        return ValueResult::Failure(r.Code, r.Text);
    }
    return ValueResult::Of(r.Data);
}

} // namespace orvo
