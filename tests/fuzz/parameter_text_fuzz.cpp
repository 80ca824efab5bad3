// Feeds arbitrary bytes to the parameter-text reader in all three syntaxes, and to the
// binding of a method with parameters of every kind. Besides crashes and sanitizer
// reports it aborts when a result breaks the reader's promises: a failure without a
// position inside the text, a value outside it, or a quoted text that reads
// differently once written again.
#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"
#include "host/methods/method_definition.h"
#include "host/methods/parameter_text.h"

#include <QRegularExpression>

#include <cstdint>
#include <cstdlib>

using namespace orvo;
using namespace orvo::host;

namespace {

void check(bool condition) {
    if (!condition)
        std::abort();
}

void checkParsed(const ParsedParameters& p, const QString& text) {
    if (!p.ok()) {
        check(p.Code == bo_codes::BadParameterText);
        check(p.values.isEmpty());
        static const QRegularExpression re(QStringLiteral("(\\d+) pozicijoje"));
        const auto m = re.match(p.Text);
        check(m.hasMatch());
        const int position = m.captured(1).toInt();
        check(position >= 1 && position <= text.size() + 1);
        return;
    }
    for (const ParameterToken& t : p.values)
        check(t.position >= 1 && t.position <= text.size() + 1);
}

MethodDefinition everyKind(ParameterSyntax syntax) {
    MethodDefinition m;
    m.name = QStringLiteral("GetFuzz");
    m.syntax = syntax;
    m.parameters = {ParameterSpec::Required(QStringLiteral("T"), ParameterKind::Text),
                    ParameterSpec::Optional(QStringLiteral("I"), ParameterKind::Integer),
                    ParameterSpec::Optional(QStringLiteral("N"), ParameterKind::Number),
                    ParameterSpec::Optional(QStringLiteral("D"), ParameterKind::Date),
                    ParameterSpec::Optional(QStringLiteral("B"), ParameterKind::Boolean),
                    ParameterSpec::Optional(QStringLiteral("O"), ParameterKind::OIDR)};
    return m;
}

MethodDefinition repeatedReferences() {
    MethodDefinition m;
    m.name = QStringLiteral("GetFuzz");
    m.parameters = {ParameterSpec::Required(QStringLiteral("D"), ParameterKind::Date),
                    ParameterSpec::Repeated(QStringLiteral("O"), ParameterKind::OIDR)};
    return m;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    for (auto syntax : {ParameterSyntax::Quoted, ParameterSyntax::Semicolon}) {
        const ParsedParameters p = ParameterText::Parse(text, syntax);
        checkParsed(p, text);
        if (syntax == ParameterSyntax::Quoted && p.ok() && !p.values.isEmpty()) {
            QStringList parts;
            for (const ParameterToken& t : p.values)
                parts.append(t.kind == ParameterToken::Kind::Quoted ? ParameterText::Quote(t.text)
                                                                    : t.text);
            const ParsedParameters again = ParameterText::Parse(parts.join(QChar(',')));
            check(again.ok() && again.values.size() == p.values.size());
            for (int i = 0; i < p.values.size(); ++i)
                check(again.values[i].text == p.values[i].text &&
                      again.values[i].kind == p.values[i].kind);
        }
        MethodArguments args;
        const ResultRecord r = MethodArguments::Bind(everyKind(syntax), text, Value(), &args);
        check(r.ok() || r.Text.startsWith(QStringLiteral("Metodas GetFuzz: ")));
    }
    MethodArguments args;
    const ResultRecord r = MethodArguments::Bind(repeatedReferences(), text, Value(), &args);
    check(r.ok() || r.Text.startsWith(QStringLiteral("Metodas GetFuzz: ")));
    checkParsed(ParameterText::Parse(text, ParameterSyntax::Whole), text);
    return 0;
}
