#!/usr/bin/env bash
# Unpacking beside 7-Zip, unar and bsdtar, and shredding beside GNU shred, on
# one seeded corpus of mixed files (made once, then reused), warm cache,
# median of three interleaved rounds; prints the Markdown section on
# standard output.
#   bash bench/archives.sh BUILD_DIR      (BENCH_ARCHIVE_MB sets the corpus size, 1024)
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1
cli="$(cd "$build" && pwd)/bin/brenlow-cli"
[ -x "$cli" ] || { echo "build first: $cli is missing" >&2; exit 1; }
mb=${BENCH_ARCHIVE_MB:-1024}
corpus=${BENCH_ARCHIVES:-/var/tmp/brenlow-bench-archives-$mb}
# On the disk, not in memory: shredding a tmpfs measures nothing.
work=$(mktemp -d /var/tmp/brenlow-bench-arc-XXXXXX)
trap 'rm -rf "$work"' EXIT
export BRENLOW_HELPER_LAUNCHER= # the helper runs as the user: the files are theirs

for tool in 7zz unar bsdtar shred; do
  command -v "$tool" >/dev/null || { echo "$tool is missing: scripts/bootstrap installs it" >&2; exit 1; }
done

if [ ! -f "$corpus/.complete" ]; then
  echo "generating $corpus (once) ..." >&2
  rm -rf "$corpus"
  mkdir -p "$corpus/src"
  python3 - "$corpus/src" "$mb" <<'PY'
import os, random, sys
root, mb = sys.argv[1], int(sys.argv[2])
random.seed(11)
words = [bytes(random.choices(b"abcdefghijklmnopqrstuvwxyz", k=random.randint(2, 9))) for _ in range(5000)]
total, i = 0, 0
while total < mb << 20:
    folder = os.path.join(root, f"d{i % 97}", f"e{i % 13}")
    os.makedirs(folder, exist_ok=True)
    kind = i % 10
    if kind < 6:    # small text files
        size = random.randint(200, 60000)
        data = b" ".join(random.choices(words, k=size // 5))[:size]
    elif kind < 9:  # binary of middling size, half incompressible
        size = random.randint(100000, 4000000)
        data = os.urandom(size // 2) + bytes(size - size // 2)
    else:           # a few large ones
        size = random.randint(8, 40) << 20
        data = os.urandom(size)
    with open(os.path.join(folder, f"f{i}.{'txt' if kind < 6 else 'bin'}"), "wb") as out:
        out.write(data)
    total += size
    i += 1
print(i, total, file=sys.stderr)
PY
  (cd "$corpus/src" && 7zz a -bso0 -bsp0 -mx=1 "$corpus/corpus.7z" . >&2)
  touch "$corpus/.complete"
fi
files=$(find "$corpus/src" -type f | wc -l)
bytes=$(du -sb "$corpus/src" | cut -f1)
archive_mb=$(( $(stat -c %s "$corpus/corpus.7z") >> 20 ))

ms() { local s=$(date +%s%N); "$@" >/dev/null 2>&1; echo $(( ($(date +%s%N) - s) / 1000000 )); }
median() { printf '%s\n' "$@" | sort -n | sed -n "$(( ($# + 1) / 2 ))p"; }
check() { # the unpacked tree must be the corpus, byte for byte
  diff -rq "$corpus/src" "$1" >/dev/null || { echo "$2 unpacked something else" >&2; exit 1; }
}

declare -A runs
for round in 1 2 3; do
  for tool in brenlow 7zz unar bsdtar; do
    out="$work/$tool"; rm -rf "$out"; mkdir -p "$out"
    case $tool in
      brenlow) t=$(ms "$cli" extract "$corpus/corpus.7z" --to "$out") ;;
      7zz) t=$(ms 7zz x -y -bso0 -bsp0 "-o$out" "$corpus/corpus.7z") ;;
      unar) t=$(ms unar -q -D -o "$out" "$corpus/corpus.7z") ;;
      bsdtar) t=$(ms bsdtar -xf "$corpus/corpus.7z" -C "$out") ;;
    esac
    [ "$round" = 1 ] && check "$out" "$tool"
    runs[$tool]="${runs[$tool]:-} $t"
    rm -rf "$out"
  done
done
declare -A med
fastest=
for tool in brenlow 7zz unar bsdtar; do
  med[$tool]=$(median ${runs[$tool]})
  if [ -z "$fastest" ] || [ "${med[$tool]}" -lt "$fastest" ]; then fastest=${med[$tool]}; fi
done

# Shredding: the same 40 files of 8 MiB each time, one pass of random data.
shred_files() { mkdir -p "$work/s"; for n in $(seq 1 40); do head -c $((8 << 20)) /dev/urandom >"$work/s/f$n"; done; sync; }
declare -A sruns
for round in 1 2 3; do
  shred_files; sruns[brenlow]="${sruns[brenlow]:-} $(ms "$cli" shred "$work/s" --yes)"
  [ ! -e "$work/s" ] || { echo "brenlow-cli shred left $work/s" >&2; exit 1; }
  shred_files; sruns[shred]="${sruns[shred]:-} $(ms shred -n 1 -u "$work"/s/f*)"
  rm -rf "$work/s"
done

cat <<EOF2
## Unpacking beside 7-Zip, unar and bsdtar, shredding beside shred

A seeded corpus of $files mixed files, $(( bytes >> 20 )) MiB (text, half-random
binaries, a few large random files) packed once with \`7zz a -mx=1\` into a
$archive_mb MiB 7z archive, unpacked on the disk under /var/tmp, warm cache,
median of three interleaved rounds, on $(nproc) cores ($(uname -sr)). Every
tool's tree was checked against the corpus byte for byte. The goal is within
1.1 times the fastest.

| unpacking the 7z | median ms | against the fastest |
|---|---|---|
EOF2
for tool in brenlow 7zz unar bsdtar; do
  case $tool in
    brenlow) name='`brenlow-cli extract --to`' ;; 7zz) name='`7zz x`' ;;
    unar) name='`unar -D`' ;; bsdtar) name='`bsdtar -xf`' ;;
  esac
  printf '| %s | %s | %s |\n' "$name" "${med[$tool]}" "$(awk -v a="${med[$tool]}" -v b="$fastest" 'BEGIN{printf "%.2f", a/b}')"
done
sb=$(median ${sruns[brenlow]}); ss=$(median ${sruns[shred]})
cat <<EOF2

No RAR writer can be installed here (RAR is a closed format to write), so
there is no large rar archive to time; the rar test archives are unpacked
by the tests, and the rar reader is the same libarchive as above.

| shredding 40 files of 8 MiB (320 MiB), one pass | median ms | MiB/s |
|---|---|---|
| \`brenlow-cli shred --yes\` (through the helper) | $sb | $(( 320 * 1000 / (sb > 0 ? sb : 1) )) |
| \`shred -n 1 -u\` | $ss | $(( 320 * 1000 / (ss > 0 ? ss : 1) )) |

Both write each file once with random data, flush it, rename it and remove
it; \`brenlow-cli\` also starts the service and the helper, and flushes the
folder once a file.
EOF2
