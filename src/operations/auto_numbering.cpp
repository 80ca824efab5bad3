#include "operations/auto_numbering.h"

#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/today.h"
#include "frame/messages.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "operations/command_failure.h"
#include "operations/command_parameters.h"
#include "operations/operation_object.h"

#include <QStringList>
#include <limits>

namespace orvo {

namespace {

const QString kNoNumber = QStringLiteral("??");
constexpr double kLargestCounter = std::numeric_limits<qint32>::max();

} // namespace

QString AutoNumbering::BuildAutoNumber(const QString& mask, const QString& prefix,
                                       const QString& anTemplate, qint32 counter,
                                       const QString& userPref, const QDate& date) {
    const QStringList parts = mask.split(QLatin1Char('_'));
    QString number;
    for (int i = 0; i < parts.size(); ++i) {
        if (i > 0)
            number += QLatin1Char('-');
        const QString& part = parts.at(i);
        if (part == QLatin1String("Date"))
            number += date.toString(QStringLiteral("yyMMdd"));
        else if (part == QLatin1String("UserPrefix"))
            number += userPref;
        else if (part == QLatin1String("AutoNumber"))
            number += QString::number(counter).rightJustified(anTemplate.size(), QLatin1Char('0'));
        else if (part == QLatin1String("Prefix"))
            number += prefix;
    }
    return number;
}

qint32 AutoNumbering::CounterFromNumber(const QString& mask, const QString& numberText,
                                        bool* tooLarge) {
    if (tooLarge)
        *tooLarge = false;
    const int index = mask.split(QLatin1Char('_')).indexOf(QStringLiteral("AutoNumber"));
    const QStringList parts = numberText.split(QLatin1Char('-'));
    if (index < 0 || index >= parts.size())
        return 0;
    const QString part = parts.at(index);
    if (!IsNumericText(part) || part.contains(QLatin1Char(',')) || part.contains(QLatin1Char('.')))
        return 0;
    const double value = NumberFromText(part);
    if (value > kLargestCounter) {
        if (tooLarge)
            *tooLarge = true;
        return 0;
    }
    return qint32(value);
}

ValueResult AutoNumbering::GetAutoNumber(const ValueArray& parameters) {
    CommandParameters p(parameters);
    const qint16 keptNumberFlag = p.Int16(0);
    const QString groupText = p.Text(1);
    if (p.Failed())
        return p.Failure()->ToResult();

    const OrvoServicesPtr services = OrvoS();
    const OrvoSessionServicePtr session = services ? services->SessionService() : nullptr;
    if (!session)
        return ValueResult::Of(Value(kNoNumber));
    const SessionUser user = session->CurrentUser();
    if (user.ID == 0 && user.Code.isEmpty() && user.Name.isEmpty())
        return ValueResult::Of(Value(kNoNumber));

    const QString query = QString::number(NzLong(op_.Field(QStringLiteral("BROperGroupID")))) +
                          QStringLiteral(",") + QString::number(user.ID) + QStringLiteral(",'") +
                          op_.OType() + QStringLiteral("',") + QString::number(keptNumberFlag) +
                          QStringLiteral(",'") + groupText + QStringLiteral("'");
    const ValueResult answer = op_.Properties(QStringLiteral("AutoNumber"), query);
    if (answer.Code != 0)
        return {answer.Code, answer.Text, Value(kNoNumber)};
    const RecordsetPtr rs = answer.Value.toRecordset();
    if (!rs || rs->RecordCount() == 0)
        return ValueResult::Of(Value(kNoNumber));
    rs->MoveFirst();
    const qint32 counter = NzLong(rs->Field(QStringLiteral("AutoNumber")));
    const QString mask = NzString(rs->Field(QStringLiteral("ANMask")));
    const QString prefix = NzString(rs->Field(QStringLiteral("ANPrefix")));
    const QString anTemplate = NzString(rs->Field(QStringLiteral("ANTemplate")));
    if (mask.isEmpty())
        return ValueResult::Of(Value(kNoNumber));

    const QString number =
        BuildAutoNumber(mask, prefix, anTemplate, counter, user.UserPref, Today());
    MaybeFailure failure;
    WriteField(op_.RsFields(), QStringLiteral("AutoNumber"), Value(counter), failure);
    if (failure)
        return failure->ToResult();
    return ValueResult::Of(Value(number));
}

ValueResult AutoNumbering::SaveAutoNumber(const ValueArray& parameters) {
    CommandParameters p(parameters);
    const QString mask = p.Text(0);
    const QString numberText = p.Text(1);
    if (p.Failed())
        return p.Failure()->ToResult();
    if (mask.isEmpty() || numberText.isEmpty())
        return ValueResult::Of(Value());

    bool tooLarge = false;
    const qint32 counter = CounterFromNumber(mask, numberText, &tooLarge);
    if (tooLarge) {
        const int index = mask.split(QLatin1Char('_')).indexOf(QStringLiteral("AutoNumber"));
        ShowInformation(QStringLiteral("Auto numerio reikšmė ") +
                        numberText.split(QLatin1Char('-')).at(index) +
                        QStringLiteral(" yra per didelė!"));
    }
    if (!op_.RsFields())
        return CommandFailure::NoOperationRow().ToResult();
    MaybeFailure failure;
    WriteField(op_.RsFields(), QStringLiteral("AutoNumber"), Value(counter), failure);
    if (failure)
        return failure->ToResult();
    return ValueResult::Of(Value(counter));
}

ValueResult AutoNumbering::CheckAutoNumber() {
    if (!op_.RsFields())
        return CommandFailure::NoOperationRow().ToResult();
    const qint32 current = NzLong(op_.Field(QStringLiteral("AutoNumber")));
    const OrvoServicesPtr services = OrvoS();
    const InputsPtr inputs = services ? services->InputsService() : nullptr;
    if (!inputs)
        return ValueResult::Of(Value(false));
    const std::optional<QString> answer =
        inputs->InputBox(QStringLiteral("Operacijos eilės numeris: "),
                         QStringLiteral("Auto numerio nustatymas"), QString::number(current));
    if (!answer || answer->trimmed().isEmpty())
        return ValueResult::Of(Value(false));
    bool ok = false;
    const qint32 wanted = Value(answer->trimmed()).toInt32(&ok);
    if (!ok)
        return CommandFailure(CommandFailure::ParameterType,
                              QStringLiteral("Operacijos eilės numeris turi būti sveikas "
                                             "skaičius."))
            .ToResult();
    if (wanted == current)
        return ValueResult::Of(Value(false));

    const MessagesPtr messages = services->MessagesService();
    const bool yes =
        messages && messages->Ask(QStringLiteral("Pakeisti operacijos eilės numerį į ") +
                                      QString::number(wanted) + QStringLiteral("?"),
                                  QStringLiteral("Auto numerio pakeitimas"));
    if (!yes)
        return ValueResult::Of(Value(false));
    MaybeFailure failure;
    WriteField(op_.RsFields(), QStringLiteral("AutoNumber"), Value(wanted), failure);
    if (failure)
        return failure->ToResult();
    return ValueResult::Of(Value(true));
}

} // namespace orvo
