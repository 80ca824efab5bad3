#include "frame/properties_convention.h"

#include "frame/messages.h"

namespace orvo {

PropertiesConvention::PropertiesConvention(const QStringList& plainQueries,
                                           const QStringList& parametrisedQueries)
    : plain_(plainQueries.begin(), plainQueries.end()),
      parametrised_(parametrisedQueries.begin(), parametrisedQueries.end()) {}

PropertiesConvention::Path PropertiesConvention::Classify(const QString& name) const {
    if (plain_.contains(name))
        return Path::Plain;
    if (parametrised_.contains(name))
        return Path::Parametrised;
    return Path::Direct;
}

QString PropertiesConvention::MethodFor(const QString& name) const {
    return Classify(name) == Path::Direct ? name : QStringLiteral("Get") + name;
}

QString PropertiesConvention::ParameterTextFor(const QString& name,
                                               const QString& parameters) const {
    return Classify(name) == Path::Plain ? QStringLiteral("None") : parameters;
}

ValueResult PropertiesConvention::Query(BusinessObject* bo, const QString& name,
                                        const QString& parameters) const {
    if (!bo)
        return Refuse(codes::RefusedNoWarning,
                      QStringLiteral("Užklausa ") + name + QStringLiteral(": knyga neatidaryta."));
    BOResult r;
    bo->Run(MethodFor(name), ParameterTextFor(name, parameters), QString(), r);
    if (r.Code != 0)
        return Refuse(r.Code, r.Text);
    return ValueResult::Of(r.Data);
}

ValueResult PropertiesConvention::Refuse(qint32 code, const QString& text) {
    ShowWarning(text);
    return ValueResult::Failure(code, text);
}

} // namespace orvo
