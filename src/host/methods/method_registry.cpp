#include "host/methods/method_registry.h"

#include "host/methods/method_codes.h"

#include <QSet>

#include <algorithm>

namespace orvo::host {

namespace {

ResultRecord refuse(const QString& name, const QString& why) {
    return ResultRecord::Failure(bo_codes::BadRegistration,
                                 QStringLiteral("Metodo ") + name +
                                     QStringLiteral(" registruoti negalima: ") + why);
}

} // namespace

ResultRecord MethodRegistry::Register(const MethodDefinition& method) {
    const QString& name = method.name;
    if (name.trimmed().isEmpty() || name != name.trimmed())
        return refuse(name, QStringLiteral("tuščias arba tarpais apsuptas vardas"));
    if (byLowerName_.contains(name.toLower()))
        return refuse(name, QStringLiteral("toks vardas jau yra: ") +
                                methods_.at(byLowerName_.value(name.toLower())).name);
    if (!method.handler)
        return refuse(name, QStringLiteral("nėra vykdytojo"));
    if (method.syntax == ParameterSyntax::Whole && method.parameters.size() > 1)
        return refuse(name, QStringLiteral("visas tekstas gali būti tik vienas parametras"));

    QSet<QString> seen;
    bool optionalSeen = false;
    for (int i = 0; i < method.parameters.size(); ++i) {
        const ParameterSpec& p = method.parameters.at(i);
        if (p.name.isEmpty())
            return refuse(name, QStringLiteral("parametras be vardo"));
        if (seen.contains(p.name))
            return refuse(name, QStringLiteral("parametras ") + p.name +
                                    QStringLiteral(" nurodytas du kartus"));
        seen.insert(p.name);
        if (p.repeated && (p.optional || i != method.parameters.size() - 1))
            return refuse(name, QStringLiteral("kartojamas parametras turi būti paskutinis ir "
                                               "privalomas"));
        if (p.optional)
            optionalSeen = true;
        else if (optionalSeen)
            return refuse(name, QStringLiteral("privalomas parametras ") + p.name +
                                    QStringLiteral(" eina po neprivalomo"));
    }

    byName_.insert(name, methods_.size());
    byLowerName_.insert(name.toLower(), methods_.size());
    methods_.append(method);
    return ResultRecord::Success();
}

const MethodDefinition* MethodRegistry::Find(const QString& name) const {
    const auto it = byName_.constFind(name);
    if (it == byName_.constEnd())
        return nullptr;
    return &methods_.at(it.value());
}

QStringList MethodRegistry::Names() const {
    QStringList names;
    names.reserve(methods_.size());
    for (const MethodDefinition& m : methods_)
        names.append(m.name);
    std::sort(names.begin(), names.end());
    return names;
}

QString MethodRegistry::Listing() const {
    QString out;
    for (const QString& name : Names()) {
        const MethodDefinition& m = *Find(name);
        out += m.Signature() + QChar('\n');
        if (m.syntax != ParameterSyntax::Quoted)
            out +=
                QStringLiteral("    syntax: ") + ParameterText::SyntaxName(m.syntax) + QChar('\n');
        out += QStringLiteral("    returns: ") +
               (m.fields.isEmpty() ? QStringLiteral("-") : m.FieldList()) + QChar('\n');
        if (!m.doc.isEmpty())
            out += QStringLiteral("    ") + m.doc + QChar('\n');
        out += QChar('\n');
    }
    return out;
}

FieldDefs MethodRegistry::ListingFields() {
    return {FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 255),
            FieldDef::Make(QStringLiteral("Parameters"), FieldType::LongVarWChar),
            FieldDef::Make(QStringLiteral("Syntax"), FieldType::VarWChar, 20),
            FieldDef::Make(QStringLiteral("Fields"), FieldType::LongVarWChar),
            FieldDef::Make(QStringLiteral("Doc"), FieldType::LongVarWChar)};
}

RecordsetPtr MethodRegistry::ListingRecordset() const {
    RecordsetPtr rs = Recordset::Create(ListingFields());
    for (const QString& name : Names()) {
        const MethodDefinition& m = *Find(name);
        rs->AddNew();
        rs->SetField(QStringLiteral("Name"), Value(m.name));
        rs->SetField(QStringLiteral("Parameters"), Value(m.Signature()));
        rs->SetField(QStringLiteral("Syntax"), Value(ParameterText::SyntaxName(m.syntax)));
        rs->SetField(QStringLiteral("Fields"), Value(m.FieldList()));
        rs->SetField(QStringLiteral("Doc"), Value(m.doc));
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return rs;
}

} // namespace orvo::host
