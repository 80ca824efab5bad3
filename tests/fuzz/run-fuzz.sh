#!/usr/bin/env bash
# Builds the fuzz targets with clang into build-fuzz/ (or $ORVO_FUZZ_DIR) and runs the
# parameter-text fuzzer for a while: run-fuzz.sh [seconds, default 60]. Not part of the
# test run; a finding is written as crash-* in the build folder.
set -euo pipefail
cd "$(dirname "$0")/../.."
DIR=${ORVO_FUZZ_DIR:-build-fuzz}
SECONDS_TO_RUN=${1:-60}
bash scripts/install-deps.sh clang
if [ ! -f "$DIR/build.ninja" ]; then
  CXX=clang++ cmake -S tests/fuzz -B "$DIR" -G Ninja
fi
cmake --build "$DIR"
corpus="$DIR/corpus"
mkdir -p "$corpus"
printf "%s" "'0','2410','2024.03.15','O0000100123',-1" > "$corpus/debts"
printf "%s" "17,5,'O0201504',0,''" > "$corpus/autonumber"
printf "%s" "'O''Brien','','x,y;z'" > "$corpus/quotes"
printf "%s" "'2024.01.01;5'" > "$corpus/semicolon"
printf "%s" "None" > "$corpus/none"
cd "$DIR"
./parameter_text_fuzz -max_total_time="$SECONDS_TO_RUN" -max_len=256 corpus
