// Random and mutated parameter texts, from a fixed seed so that a failure repeats.
#include "host/methods/host_business_object.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"
#include "host/methods/parameter_text.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <random>

using namespace orvo;
using namespace orvo::host;

namespace {

const QString kAlphabet = QString::fromUtf8("''''',,,;; \t\n0123456789.-+eEabNoneTrufąčęžŠ„“\x01");

QString randomText(std::mt19937& rng, int maxLength) {
    std::uniform_int_distribution<int> len(0, maxLength);
    std::uniform_int_distribution<int> pick(0, kAlphabet.size() - 1);
    QString s;
    const int n = len(rng);
    for (int i = 0; i < n; ++i)
        s += kAlphabet.at(pick(rng));
    return s;
}

QString randomValue(std::mt19937& rng) {
    return randomText(rng, 8);
}

QString randomBlanks(std::mt19937& rng) {
    static const char* blanks[] = {"", "", " ", "  ", "\t"};
    return QString::fromLatin1(blanks[std::uniform_int_distribution<int>(0, 4)(rng)]);
}

QString mutate(std::mt19937& rng, QString s) {
    std::uniform_int_distribution<int> op(0, 2);
    std::uniform_int_distribution<int> pick(0, kAlphabet.size() - 1);
    const int times = std::uniform_int_distribution<int>(1, 3)(rng);
    for (int k = 0; k < times; ++k) {
        const int at = std::uniform_int_distribution<int>(0, s.size())(rng);
        switch (op(rng)) {
        case 0:
            s.insert(at, kAlphabet.at(pick(rng)));
            break;
        case 1:
            if (at < s.size())
                s.remove(at, 1);
            break;
        default:
            if (at < s.size())
                s[at] = kAlphabet.at(pick(rng));
            break;
        }
    }
    return s;
}

// A failure must name a position inside the text or just after it.
void expectPositionedFailure(const ParsedParameters& p, const QString& text) {
    ASSERT_EQ(p.Code, bo_codes::BadParameterText) << text.toStdString();
    ASSERT_TRUE(p.values.isEmpty());
    static const QRegularExpression re(QStringLiteral("(\\d+) pozicijoje"));
    const auto m = re.match(p.Text);
    ASSERT_TRUE(m.hasMatch()) << p.Text.toStdString();
    const int position = m.captured(1).toInt();
    EXPECT_GE(position, 1) << text.toStdString();
    EXPECT_LE(position, text.size() + 1) << text.toStdString();
}

// What a successful quoted parse gave, written again: it must read the same.
QString rewrite(const ParsedParameters& p) {
    QStringList parts;
    for (const ParameterToken& t : p.values)
        parts.append(t.kind == ParameterToken::Kind::Quoted ? ParameterText::Quote(t.text)
                                                            : t.text);
    return parts.join(QChar(','));
}

} // namespace

TEST(ParameterTextRandom, GeneratedValueListsParseBackExactly) {
    std::mt19937 rng(20240315);
    for (int round = 0; round < 5000; ++round) {
        const int count = std::uniform_int_distribution<int>(1, 6)(rng);
        QStringList expected;
        QString text = randomBlanks(rng);
        for (int i = 0; i < count; ++i) {
            if (i > 0)
                text += randomBlanks(rng) + QChar(',') + randomBlanks(rng);
            if (std::uniform_int_distribution<int>(0, 3)(rng) == 0) {
                const int n = std::uniform_int_distribution<int>(-100000, 100000)(rng);
                const QString number = (n % 2) ? QString::number(n) : QString::number(n / 100.0);
                expected.append(number);
                text += number;
            } else {
                const QString v = randomValue(rng);
                expected.append(v);
                text += ParameterText::Quote(v);
            }
        }
        text += randomBlanks(rng);
        const ParsedParameters p = ParameterText::Parse(text);
        ASSERT_TRUE(p.ok()) << text.toStdString() << " -> " << p.Text.toStdString();
        QStringList got;
        for (const ParameterToken& t : p.values)
            got.append(t.text);
        ASSERT_EQ(got, expected) << text.toStdString();
    }
}

TEST(ParameterTextRandom, RandomTextsNeverCrashAndFailWithAPosition) {
    std::mt19937 rng(7);
    for (int round = 0; round < 20000; ++round) {
        const QString text = randomText(rng, 24);
        for (auto syntax :
             {ParameterSyntax::Quoted, ParameterSyntax::Semicolon, ParameterSyntax::Whole}) {
            const ParsedParameters p = ParameterText::Parse(text, syntax);
            if (!p.ok()) {
                expectPositionedFailure(p, text);
                continue;
            }
            for (const ParameterToken& t : p.values) {
                EXPECT_GE(t.position, 1);
                EXPECT_LE(t.position, text.size() + 1);
            }
            if (syntax == ParameterSyntax::Quoted && !p.values.isEmpty()) {
                const ParsedParameters again = ParameterText::Parse(rewrite(p));
                ASSERT_TRUE(again.ok()) << text.toStdString();
                ASSERT_EQ(again.values.size(), p.values.size());
                for (int i = 0; i < p.values.size(); ++i) {
                    EXPECT_EQ(again.values[i].text, p.values[i].text);
                    EXPECT_EQ(again.values[i].kind, p.values[i].kind);
                }
            }
        }
    }
}

TEST(ParameterTextRandom, MutatedValidTextsNeverCrashAndFailWithAPosition) {
    std::mt19937 rng(11);
    const QStringList seeds{"'0','2410','2024.03.15','O0000100123',-1", "17,5,'O0201504',0,''",
                            "'O''Brien','','x,y;z'", "'2024.01.01;5'", "None"};
    int failures = 0;
    for (int round = 0; round < 20000; ++round) {
        const QString text = mutate(rng, seeds.at(round % seeds.size()));
        for (auto syntax :
             {ParameterSyntax::Quoted, ParameterSyntax::Semicolon, ParameterSyntax::Whole}) {
            const ParsedParameters p = ParameterText::Parse(text, syntax);
            if (!p.ok()) {
                ++failures;
                expectPositionedFailure(p, text);
            }
        }
    }
    // Mutations that break a quote must be caught, not read as something else.
    EXPECT_GT(failures, 1000);
}

TEST(ParameterTextRandom, RandomTextsThroughRunAlwaysGiveAResult) {
    auto registry = std::make_shared<MethodRegistry>();
    const ParameterKind kinds[] = {ParameterKind::Text,    ParameterKind::Integer,
                                   ParameterKind::Number,  ParameterKind::Date,
                                   ParameterKind::Boolean, ParameterKind::OIDR};
    int n = 0;
    for (ParameterKind kind : kinds) {
        for (auto syntax :
             {ParameterSyntax::Quoted, ParameterSyntax::Semicolon, ParameterSyntax::Whole}) {
            MethodDefinition m;
            m.name = QStringLiteral("M%1").arg(n++);
            m.syntax = syntax;
            m.parameters.append(ParameterSpec::Required(QStringLiteral("A"), kind));
            if (syntax != ParameterSyntax::Whole)
                m.parameters.append(ParameterSpec::Optional(QStringLiteral("B"), kind));
            m.handler = [](MethodContext&, const MethodArguments& a) {
                return BOResult::Of(Value(a.GivenCount()));
            };
            ASSERT_TRUE(registry->Register(m).ok());
        }
    }
    HostBusinessObject bo(registry, MethodContext());
    std::mt19937 rng(99);
    int accepted = 0;
    for (int round = 0; round < 20000; ++round) {
        const QString name = QStringLiteral("M%1").arg(round % n);
        const QString text =
            (round % 2) ? randomText(rng, 16) : mutate(rng, QStringLiteral("'2024.03.15',-1"));
        BOResult r;
        bo.Run(name, text, QString(), r);
        if (r.ok()) {
            ++accepted;
            EXPECT_GE(r.Data.toInt32(), 1);
            EXPECT_LE(r.Data.toInt32(), 2);
        } else {
            EXPECT_TRUE(r.Text.startsWith(QStringLiteral("Metodas ") + name + ": "))
                << r.Text.toStdString();
            EXPECT_TRUE(r.Data.isNull());
        }
    }
    EXPECT_GT(accepted, 100);
}
