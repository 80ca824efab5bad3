// How long the business object takes to read a parameter text before a method runs:
// parsing alone, and parsing with the count and kind checks of a five-parameter method.
#include "host/methods/method_arguments.h"
#include "host/methods/method_definition.h"
#include "host/methods/parameter_text.h"

#include <benchmark/benchmark.h>

using namespace orvo;
using namespace orvo::host;

namespace {

const QString kDebts = QStringLiteral("'0','2410','2024.03.15','O0000100123',-1");

void BM_ParseDebtsText(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(ParameterText::Parse(kDebts));
}
BENCHMARK(BM_ParseDebtsText);

void BM_ParseLongList(benchmark::State& state) {
    QStringList values;
    for (int i = 0; i < state.range(0); ++i)
        values.append(QStringLiteral("O0201500%1").arg(i));
    const QString text = ParameterText::Join(values);
    for (auto _ : state)
        benchmark::DoNotOptimize(ParameterText::Parse(text));
    state.SetBytesProcessed(state.iterations() * text.size() * 2);
}
BENCHMARK(BM_ParseLongList)->Arg(10)->Arg(1000);

void BM_BindDebtsText(benchmark::State& state) {
    MethodDefinition m;
    m.name = QStringLiteral("GetDebts1");
    m.parameters = {ParameterSpec::Required(QStringLiteral("Kind"), ParameterKind::Integer),
                    ParameterSpec::Required(QStringLiteral("Account"), ParameterKind::Text),
                    ParameterSpec::Required(QStringLiteral("DateD"), ParameterKind::Date),
                    ParameterSpec::Required(QStringLiteral("FOIDR"), ParameterKind::OIDR),
                    ParameterSpec::Required(QStringLiteral("Sign"), ParameterKind::Integer)};
    for (auto _ : state) {
        MethodArguments args;
        benchmark::DoNotOptimize(MethodArguments::Bind(m, kDebts, Value(), &args));
        benchmark::DoNotOptimize(args);
    }
}
BENCHMARK(BM_BindDebtsText);

} // namespace
