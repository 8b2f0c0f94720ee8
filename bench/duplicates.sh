#!/usr/bin/env bash
# The duplicate scan beside jdupes, rmlint, fdupes and rdfind, on one seeded
# corpus under /tmp (made once, then reused), warm cache, each tool run five
# times in interleaved rounds; prints the Markdown section on standard output.
#   bash bench/duplicates.sh BUILD_DIR
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1
cli="$(cd "$build" && pwd)/bin/brenlow-cli"
[ -x "$cli" ] || { echo "build first: $cli is missing" >&2; exit 1; }
corpus=${BENCH_DUPLICATES:-/tmp/brenlow-bench-duplicates}
tiny=${BENCH_TINY:-/tmp/brenlow-bench-tiny}
work=$(mktemp -d /tmp/brenlow-bench-dup-XXXXXX)
trap 'rm -rf "$work"' EXIT

# The peers are for the benchmark only; the product never needs them.
missing=()
for tool in jdupes rmlint fdupes rdfind; do
  command -v "$tool" >/dev/null || missing+=("$tool")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "installing ${missing[*]} for the benchmark ..." >&2
  sudo=; [ "$(id -u)" = 0 ] || sudo="sudo"
  $sudo apt-get install -y "${missing[@]}" >&2
fi
for c in main:"$corpus" tiny:"$tiny"; do
  if [ ! -f "${c#*:}/.complete" ]; then
    echo "generating ${c#*:} (once) ..." >&2
    python3 "$here/duplicates_corpus.py" "${c%%:*}" "${c#*:}"
  fi
done

# Every tool with the same limit: files of one byte and more, hard links
# counted as copies (Brenlow's rule: a path is a file), output kept for the check.
declare -A cmd=(
  [brenlow]="$cli scan Duplicates --path $corpus --min-size 0 --json"
  [jdupes]="jdupes -r -H -q $corpus"
  [rmlint]="rmlint -T df -o json:$work/rmlint.json $corpus"
  [fdupes]="fdupes -r -H -n -q $corpus"
  [rdfind]="rdfind -dryrun true -removeidentinode false -minsize 1 -outputname $work/rdfind.txt $corpus"
)
tools=(brenlow jdupes rmlint fdupes rdfind)
run() { # tool -> appends "wall cpu peakKiB" to $work/tool.times
  local t=$1
  (cd "$work" && /usr/bin/time -f "%e %U %S %M" -o "$work/time.$t" ${cmd[$t]} >"$work/$t.out" 2>/dev/null)
  awk '{printf "%.2f %.2f %d\n", $1, $2 + $3, $4}' "$work/time.$t" >>"$work/$t.times"
}
echo "warming the cache ..." >&2
find "$corpus" -type f -exec cat {} + >/dev/null
for t in "${tools[@]}"; do run "$t"; : >"$work/$t.times"; done
for round in 1 2 3 4 5; do
  for t in "${tools[@]}"; do
    echo "round $round: $t" >&2
    run "$t"
  done
done
median() { sort -n | awk '{a[NR]=$1} END {print a[int((NR+1)/2)]}'; }
col() { awk -v c="$2" '{print $c}' "$work/$1.times" | median; }

groups() { python3 "$here/duplicates_groups.py" "$@"; }
groups brenlow "$work/brenlow.out" >"$work/brenlow.groups"
groups blocks "$work/jdupes.out" >"$work/jdupes.groups"
groups blocks "$work/fdupes.out" >"$work/fdupes.groups"
groups rmlint "$work/rmlint.json" >"$work/rmlint.groups"
groups rdfind "$work/rdfind.txt" >"$work/rdfind.groups"

files=$(find "$corpus" -type f | wc -l)
bytes=$(du -sb --apparent-size "$corpus" | cut -f1)
ngroups=$(wc -l <"$work/brenlow.groups")
fastest=
for t in jdupes rmlint fdupes rdfind; do
  w=$(col "$t" 1)
  if [ -z "$fastest" ] || awk -v a="$w" -v b="$(col "$fastest" 1)" 'BEGIN {exit !(a < b)}'; then
    fastest=$t
  fi
done
ratio() { awk -v a="$1" -v b="$2" 'BEGIN {printf "%.2f", a / b}'; }

echo "measuring the tiny-file corpus ..." >&2
tinyfiles=$(find "$tiny" -type f | wc -l)
: >"$work/walk.times"
for _ in 1 2 3; do
  /usr/bin/time -f "%e %U %S %M" -o "$work/time.walk" "$cli" scan Duplicates --path "$tiny" --min-size 1 >/dev/null
  awk '{printf "%.2f %.2f %d\n", $1, $2 + $3, $4}' "$work/time.walk" >>"$work/walk.times"
done
/usr/bin/time -f "%e %U %S %M" -o "$work/time.base" "$cli" scan Duplicates --path "$work" --min-size 1 >/dev/null
/usr/bin/time -f "%e %U %S %M" -o "$work/time.tinyfull" "$cli" scan Duplicates --path "$tiny" --min-size 0 --json >/dev/null
/usr/bin/time -f "%e %U %S %M" -o "$work/time.tinyjdupes" jdupes -r -H -q "$tiny" >/dev/null
base=$(awk '{print $4}' "$work/time.base")
fullpeak=$(awk '{print $4}' "$work/time.tinyfull")

cat <<MD
## Duplicate scan against jdupes, rmlint, fdupes and rdfind

A generated corpus (\`bench/duplicates_corpus.py\`, seeded) of $files files
and $(awk -v b="$bytes" 'BEGIN {printf "%.1f", b / 1e9}') GB in a tree up to ten folders deep: groups of 2 to 5
identical copies, files of one size and different content, pairs that
differ only in their last byte or in one middle byte, 300 hard links, 14
files over 30 MiB, empty files. Every tool takes files of one byte and more
and counts hard links as copies. Warm cache, five interleaved rounds, medians,
on $(nproc) cores shared with other work ($(uname -sr)); CPU is user +
system time, memory the peak resident size (\`/usr/bin/time -v\`).

| tool | command | wall s | CPU s | peak MiB | wall against $fastest |
|---|---|---|---|---|---|
MD
for t in "${tools[@]}"; do
  shown=${cmd[$t]//$corpus/CORPUS}
  shown=${shown//$work\//}
  shown=${shown//$cli/brenlow-cli}
  echo "| $t | \`$shown\` | $(col "$t" 1) | $(col "$t" 2) | $(awk -v k="$(col "$t" 3)" 'BEGIN {printf "%.0f", k / 1024}') | $(ratio "$(col "$t" 1)" "$(col "$fastest" 1)") |"
done
echo
echo "Groups: Brenlow found $ngroups."
for t in jdupes rmlint fdupes rdfind; do
  if cmp -s "$work/brenlow.groups" "$work/$t.groups"; then
    echo "- $t: the same $ngroups groups, file for file."
  else
    echo "- $t: DIFFERENT ($(wc -l <"$work/$t.groups") groups; $(comm -3 "$work/brenlow.groups" "$work/$t.groups" | wc -l) lines differ)."
  fi
done
goal=$(ratio "$(col brenlow 1)" "$(col "$fastest" 1)")
echo
if awk -v g="$goal" 'BEGIN {exit !(g <= 0.8)}'; then
  echo "Goal (at most 0.8 of the fastest peer's wall time): met, $goal of $fastest."
else
  echo "Goal (at most 0.8 of the fastest peer's wall time): not met, $goal of $fastest."
fi
cat <<MD

### A million tiny files

$tinyfiles files of 1 to 64 bytes in 20,000 folders (\`bench/duplicates_corpus.py tiny\`).

| run | wall s | CPU s | peak MiB |
|---|---|---|---|
| walk only (\`--min-size 1\`: every file is below the limit), median of 3 | $(col walk 1) | $(col walk 2) | $(awk -v k="$(col walk 3)" 'BEGIN {printf "%.0f", k / 1024}') |
| whole scan (\`--min-size 0\`: every file is a candidate), once | $(awk '{print $1}' "$work/time.tinyfull") | $(awk '{printf "%.2f", $2 + $3}' "$work/time.tinyfull") | $(awk '{printf "%.0f", $4 / 1024}' "$work/time.tinyfull") |
| \`jdupes -r -H -q\`, once | $(awk '{print $1}' "$work/time.tinyjdupes") | $(awk '{printf "%.2f", $2 + $3}' "$work/time.tinyjdupes") | $(awk '{printf "%.0f", $4 / 1024}' "$work/time.tinyjdupes") |

Memory per file of the whole scan: $(awk -v p="$fullpeak" -v b="$base" -v n="$tinyfiles" 'BEGIN {printf "%.0f", (p - b) * 1024 / n}') bytes (peak less the
$(awk -v b="$base" 'BEGIN {printf "%.0f", b / 1024}') MiB of a scan of an empty folder, divided by the files).
MD
