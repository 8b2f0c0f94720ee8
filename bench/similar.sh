#!/usr/bin/env bash
# The similar image scan beside findimagedupes on one seeded corpus of
# 12-megapixel pictures and their near-copies (made once under /tmp, then
# reused), warm cache; prints the Markdown section on standard output.
#   bash bench/similar.sh BUILD_DIR
# BENCH_SIMILAR sets the corpus folder, BENCH_SIMILAR_COUNT the originals (2000),
# BENCH_SIMILAR_PEER the originals whose pictures findimagedupes is given
# (all by default; it takes about six times as long as Brenlow).
# Sessions are scheduled as groups here, so nice 19 elsewhere does not yield
# to this run; start it in its own session with its group at nice -20:
#   setsid bash -c 'echo -20 >/proc/self/autogroup; flock /work/bench.lock bash bench/run build similar'
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
cli="$build/bin/brenlow-cli"
generator="$build/bench/brenlow-bench-similar-corpus"
for program in "$cli" "$generator"; do
  [ -x "$program" ] || { echo "build first: $program is missing" >&2; exit 1; }
done
corpus=${BENCH_SIMILAR:-/tmp/brenlow-bench-similar}
count=${BENCH_SIMILAR_COUNT:-2000}
work=$(mktemp -d /tmp/brenlow-bench-sim-XXXXXX)
trap 'rm -rf "$work"' EXIT

# The peer is for the benchmark only; the product never needs it.
if ! command -v findimagedupes >/dev/null; then
  echo "installing findimagedupes for the benchmark ..." >&2
  sudo=; [ "$(id -u)" = 0 ] || sudo="sudo"
  $sudo apt-get install -y findimagedupes >&2
fi
# libjpeg-turbo's own decoder times the reading of the JPEGs alone, with no
# hashing (for the benchmark only).
if ! command -v djpeg >/dev/null; then
  echo "installing libjpeg-turbo-progs for the benchmark ..." >&2
  sudo=; [ "$(id -u)" = 0 ] || sudo="sudo"
  $sudo apt-get install -y libjpeg-turbo-progs >&2
fi
if [ ! -f "$corpus/.complete" ]; then
  echo "generating $corpus (once) ..." >&2
  rm -rf "$corpus"
  QT_QPA_PLATFORM=offscreen "$generator" "$corpus" "$count"
fi
find "$corpus" -type f \( -name '*.jpg' -o -name '*.png' \) | sort >"$work/all.list"
pictures=$(wc -l <"$work/all.list")
# The peer's share: the pictures of the first originals with their copies.
peerupto=${BENCH_SIMILAR_PEER:-$count}
sample() { python3 -c 'import re, sys
k = int(sys.argv[1])
for line in sys.stdin:
    m = re.search(r"/p(\d+)[.-][^/]*$", line.split("\t")[0])
    if m and int(m.group(1)) < k: sys.stdout.write(line)' "$peerupto"; }
sample <"$work/all.list" >"$work/peer.list"
sample <"$corpus/pairs.tsv" >"$work/peer.pairs"
peerpictures=$(wc -l <"$work/peer.list")
jpegs=$(find "$corpus/jpeg" -type f | wc -l)
originals=$(( jpegs + $(find "$corpus/png" -type f | wc -l) ))
load() { cut -d' ' -f1-3 /proc/loadavg; }

measure() { # name command... -> "wall cpu peakKiB" in $work/name.time, output in $work/name.out
  local name=$1
  shift
  /usr/bin/time -f "%e %U %S %M" -o "$work/$name.time" "$@" >"$work/$name.out" 2>/dev/null
}
field() { awk -v c="$2" '{if (c == 2) printf "%.1f", $2 + $3; else if (c == 3) printf "%.0f", $4 / 1024; else print $1}' "$work/$1.time"; }
rate() { awk -v n="$1" -v w="$(field "$2" 1)" 'BEGIN {printf "%.1f", n / w}'; }

echo "warming the cache ..." >&2
find "$corpus" -type f -exec cat {} + >/dev/null
loadbefore=$(load)
echo "brenlow ..." >&2
measure brenlow "$cli" scan "Similar Images" --path "$corpus" --threshold 3 --json
measure brenlow_jpeg "$cli" scan "Similar Images" --path "$corpus/jpeg" --threshold 3 --json
echo "decoding alone ..." >&2
grep '\.jpg$' "$work/all.list" >"$work/jpeg.list"
grep '\.png$' "$work/all.list" >"$work/png.list"
# What reading the pictures costs before any hashing: each JPEG decoded by
# djpeg at libjpeg's smallest DCT scale, each PNG's data only inflated (its
# rows not even unfiltered), as many at once as there are cores.
decode='xargs -a "$1" -d "\n" -n 1 -P "$(nproc)" djpeg -scale 1/8 -outfile /dev/null
  [ ! -s "$2" ] || xargs -a "$2" -d "\n" -n 16 -P "$(nproc)" python3 "$0"'
measure decode bash -c "$decode" "$here/png_inflate.py" "$work/jpeg.list" "$work/png.list"
measure decode_jpeg bash -c "$decode" "$here/png_inflate.py" "$work/jpeg.list" /dev/null
echo "findimagedupes ..." >&2
/usr/bin/time -f "%e %U %S %M" -o "$work/peer.time" findimagedupes -q - <"$work/peer.list" >"$work/peer.out" 2>/dev/null
loadafter=$(load)

read -r recall falseshare falsepairs groups < <(python3 "$here/similar_score.py" brenlow "$work/brenlow.out" "$corpus/pairs.tsv" "$pictures")
read -r precall pfalseshare pfalsepairs pgroups < <(python3 "$here/similar_score.py" findimagedupes "$work/peer.out" "$work/peer.pairs" "$peerpictures")
copies=$(wc -l <"$corpus/pairs.tsv")
percent() { awk -v v="$1" 'BEGIN {printf "%.1f %%", v * 100}'; }
percent4() { awk -v v="$1" 'BEGIN {printf "%.4f %%", v * 100}'; }
speedup=$(awk -v a="$(rate "$pictures" brenlow)" -v b="$(rate "$peerpictures" peer)" 'BEGIN {printf "%.1f", a / b}')
cpurate() { awk -v n="$1" -v c="$(field "$2" 2)" 'BEGIN {printf "%.1f", n / c}'; }
cpuspeedup=$(awk -v a="$(cpurate "$pictures" brenlow)" -v b="$(cpurate "$peerpictures" peer)" 'BEGIN {printf "%.1f", a / b}')
peercopies=$(wc -l <"$work/peer.pairs")

if [ "$peerpictures" = "$pictures" ]; then
  peershare="findimagedupes was given the whole corpus."
else
  peershare="findimagedupes was given the pictures of the first $peerupto originals and
their near-copies ($peerpictures pictures, $peercopies pairs); its figures
are per picture of that list."
fi
cat <<MD
## Similar images against findimagedupes

A generated corpus (\`brenlow-bench-similar-corpus\`, seeded) of $pictures
pictures of 4000 × 3000 pixels: $originals originals (a gradient, 6 to 20 shapes,
a line of text; the $jpegs JPEGs at quality 90 with grain, the rest PNG), and
$copies near-copies of a fifth of them, the five kinds in turn: scaled to half
size, re-encoded at JPEG quality 60, converted JPEG↔PNG, brightened by 5 %,
a small caption added. Warm cache, one run each, on $(nproc) cores
($(uname -sr)); load average (1, 5, 15 minutes) $loadbefore before the
runs and $loadafter after them (this run's scheduling group:
$(cat /proc/self/autogroup 2>/dev/null || echo none)); CPU is user + system
time, memory the peak resident size.

| tool | command | pictures | wall s | pictures/s | CPU s | pictures per CPU s | peak MiB |
|---|---|---|---|---|---|---|---|
| brenlow | \`brenlow-cli scan "Similar Images" --path CORPUS --threshold 3 --json\` | $pictures | $(field brenlow 1) | $(rate "$pictures" brenlow) | $(field brenlow 2) | $(cpurate "$pictures" brenlow) | $(field brenlow 3) |
| brenlow, the JPEGs only | \`... --path CORPUS/jpeg ...\` | $jpegs | $(field brenlow_jpeg 1) | $(rate "$jpegs" brenlow_jpeg) | $(field brenlow_jpeg 2) | $(cpurate "$jpegs" brenlow_jpeg) | $(field brenlow_jpeg 3) |
| reading alone | \`djpeg -scale 1/8\`, \`png_inflate.py\` | $pictures | $(field decode 1) | $(rate "$pictures" decode) | $(field decode 2) | $(cpurate "$pictures" decode) | $(field decode 3) |
| reading alone, the JPEGs | \`djpeg -scale 1/8\` | $jpegs | $(field decode_jpeg 1) | $(rate "$jpegs" decode_jpeg) | $(field decode_jpeg 2) | $(cpurate "$jpegs" decode_jpeg) | $(field decode_jpeg 3) |
| findimagedupes | \`findimagedupes -q - <LIST\` | $peerpictures | $(field peer 1) | $(rate "$peerpictures" peer) | $(field peer 2) | $(cpurate "$peerpictures" peer) | $(field peer 3) |

$peershare
"Reading alone" is what the pictures cost before any hashing, with the
libraries Brenlow decodes with: libjpeg-turbo's \`djpeg\` at its smallest DCT
scale for each JPEG, and zlib inflating each PNG's image data (\`bench/png_inflate.py\`;
its rows are not even unfiltered), as many at once as there are cores.
These tools pay a process for each JPEG and a Python for every 16 PNGs, so
their time bounds the reading from above. Ten times findimagedupes'
rate would be $(awk -v r="$(rate "$peerpictures" peer)" 'BEGIN {printf "%.1f", 10 * r}') pictures a second.

What they group (a near-copy pair counts when both pictures share a group;
an unrelated pair is any other pair of pictures that share one):

| tool | near-copy pairs grouped (recall) | unrelated pairs grouped (false groups) | groups |
|---|---|---|---|
| brenlow, threshold 3 | $(percent "$recall") of $copies | $(percent4 "$falseshare") ($falsepairs pairs) | $groups |
| findimagedupes, default 90 % | $(percent "$precall") of $peercopies | $(percent4 "$pfalseshare") ($pfalsepairs pairs) | $pgroups |

Goals: at least 10 times findimagedupes' pictures per second ($speedup times
by wall time, $cpuspeedup times by CPU time),
at least 40 pictures per second on the 12-megapixel JPEGs ($(rate "$jpegs" brenlow_jpeg)),
recall at least 90 % ($(percent "$recall")), false groups under 1 % ($(percent4 "$falseshare")).
MD
