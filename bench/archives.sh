#!/usr/bin/env bash
# Unpacking beside 7-Zip, unar and bsdtar, and shredding beside GNU shred, on
# one seeded corpus of mixed files packed as 7z, rar and solid rar (made once,
# then reused), warm cache, median of five interleaved rounds; prints the
# Markdown section on standard output.
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
# rar is a closed format to write, and Debian's 7-Zip reads it only with a
# non-free module: both come from Debian's non-free component, for this
# benchmark only, through a source of its own that is gone when the script
# ends, pass or fail.
nonfree=/etc/apt/sources.list.d/brenlow-bench-nonfree.sources
added_source=
cleanup() {
  rm -rf "$work"
  if [ -n "$added_source" ]; then as_root rm -f "$nonfree"; fi
}
trap cleanup EXIT
export BRENLOW_HELPER_LAUNCHER= # the helper runs as the user: the files are theirs

as_root() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi; }
if ! command -v rar >/dev/null || ! command -v 7z >/dev/null || [ ! -f /usr/lib/p7zip/Codecs/Rar.so ]; then
  echo "installing rar, p7zip-full and p7zip-rar from bookworm's non-free component ..." >&2
  if [ ! -f "$nonfree" ]; then
    added_source=1
    as_root tee "$nonfree" >/dev/null <<'EOF'
Types: deb
URIs: http://deb.debian.org/debian
Suites: bookworm
Components: non-free
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
EOF
  fi
  as_root apt-get update >&2
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
    rar p7zip-full p7zip-rar >&2
fi

for tool in 7zz 7z rar unar bsdtar shred; do
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
# RAR5 with the fastest method (-m1), the counterpart of 7-Zip's -mx=1;
# once file by file and once solid (-s), both with rar's default dictionary.
pack_rar() { # NAME OPTION...
  local name=$1; shift
  [ -f "$corpus/$name" ] && return
  echo "packing $corpus/$name (once) ..." >&2
  rm -f "$corpus/$name.new"
  (cd "$corpus/src" && rar a -ma5 -m1 "$@" -r -idq -- "$corpus/$name.new" . >&2)
  mv "$corpus/$name.new" "$corpus/$name"
}
pack_rar corpus.rar
pack_rar corpus-solid.rar -s

files=$(find "$corpus/src" -type f | wc -l)
bytes=$(du -sb "$corpus/src" | cut -f1)
archives="corpus.7z corpus.rar corpus-solid.rar"

ms() { local s=$(date +%s%N); "$@" >/dev/null 2>&1; echo $(( ($(date +%s%N) - s) / 1000000 )); }
median() { printf '%s\n' "$@" | sort -n | sed -n "$(( ($# + 1) / 2 ))p"; }
wrong() { # how many files of the unpacked tree differ from the corpus
  { diff -rq "$corpus/src" "$1" 2>&1 || true; } | wc -l
}
# 7zz is Debian's 7-Zip without the rar codec; 7z is the same 7-Zip with
# Debian's non-free rar module, so it stands for 7-Zip on the rar archives.
# rar's own unpacker is timed beside them on its own archives.
tools_of() { case $1 in *.7z) echo brenlow 7zz unar bsdtar ;; *) echo brenlow 7z unar bsdtar rar ;; esac; }
unpack() { # TOOL ARCHIVE OUT: the milliseconds it took
  case $1 in
    brenlow) ms "$cli" extract "$2" --to "$3" ;;
    7zz | 7z) ms "$1" x -y -bso0 -bsp0 "-o$3" "$2" ;;
    unar) ms unar -q -D -o "$3" "$2" ;;
    bsdtar) ms bsdtar -xf "$2" -C "$3" ;;
    rar) ms rar x -idq -y "$2" "$3/" ;;
  esac
}

load_before=$(cut -d' ' -f1-3 /proc/loadavg)
declare -A runs bad
rounds=${BENCH_ROUNDS:-5}
rotated() { # LIST N: the list turned N places, so no tool always follows the same one
  local -a l=($1); local n=$(( $2 % ${#l[@]} ))
  echo "${l[@]:n}" "${l[@]:0:n}"
}
for round in $(seq 1 "$rounds"); do
  for a in $archives; do
    for tool in $(rotated "$(tools_of "$a")" "$round"); do
      out="$work/$tool"; rm -rf "$out"; mkdir -p "$out"
      # Each tool starts with nothing of the last one's still being written back.
      sync
      t=$(unpack "$tool" "$corpus/$a" "$out")
      # A tool that unpacks something else is shown so, not timed against.
      if [ "$round" = 1 ]; then
        n=$(wrong "$out")
        [ "$n" = 0 ] || { bad[$a.$tool]=$n; echo "$tool unpacked $n files of $a wrongly" >&2; }
      fi
      runs[$a.$tool]="${runs[$a.$tool]:-} $t"
      rm -rf "$out"
    done
  done
done
load_after=$(cut -d' ' -f1-3 /proc/loadavg)

table() { # ARCHIVE TITLE: the Markdown table of its unpacking times
  local a=$1 fastest= tool name m
  declare -A med
  for tool in $(tools_of "$a"); do
    med[$tool]=$(median ${runs[$a.$tool]})
    [ -z "${bad[$a.$tool]:-}" ] || continue
    if [ -z "$fastest" ] || [ "${med[$tool]}" -lt "$fastest" ]; then fastest=${med[$tool]}; fi
  done
  printf '| %s (%s MiB) | median ms | against the fastest |\n|---|---|---|\n' "$2" \
    "$(( $(stat -c %s "$corpus/$a") >> 20 ))"
  for tool in $(tools_of "$a"); do
    case $tool in
      brenlow) name='`brenlow-cli extract --to`' ;; 7zz) name='`7zz x`' ;;
      7z) name='`7z x` (with p7zip-rar)' ;; unar) name='`unar -D`' ;;
      bsdtar) name='`bsdtar -xf`' ;; rar) name='`rar x` (the packer itself)' ;;
    esac
    m=${med[$tool]}
    if [ -n "${bad[$a.$tool]:-}" ]; then
      printf '| %s | %s | failed: %s files differ |\n' "$name" "$m" "${bad[$a.$tool]}"
    else
      printf '| %s | %s | %s |\n' "$name" "$m" "$(awk -v a="$m" -v b="$fastest" 'BEGIN{printf "%.2f", a/b}')"
    fi
  done
}

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
7z archive, and with rar 7.01 into two RAR5 archives with its fastest method,
\`rar a -ma5 -m1\`, file by file and solid (\`-s\`). Each is unpacked on the
disk under /var/tmp, warm cache, median of $rounds interleaved rounds (the
tools' order turned each round, the disk synced before each run), on
$(nproc) cores ($(uname -sr)), load average $load_before before and
$load_after after (a shared machine). Every tool's tree was checked against
the corpus byte for byte; a tool whose tree differs is marked and left out
of the fastest. The goal is within 1.1 times the fastest.

EOF2
table corpus.7z 'unpacking the 7z'
echo
table corpus.rar 'unpacking the rar'
echo
table corpus-solid.rar 'unpacking the solid rar'
cat <<EOF2

Debian's \`7zz\` is built without the rar codec; \`7z\` (p7zip-full) with the
non-free p7zip-rar module is the same 7-Zip reading rar. \`rar\` and
p7zip-rar come from Debian's non-free component, for this benchmark only.
EOF2
sb=$(median ${sruns[brenlow]}); ss=$(median ${sruns[shred]})
cat <<EOF2

| shredding 40 files of 8 MiB (320 MiB), one pass | median ms | MiB/s |
|---|---|---|
| \`brenlow-cli shred --yes\` (through the helper) | $sb | $(( 320 * 1000 / (sb > 0 ? sb : 1) )) |
| \`shred -n 1 -u\` | $ss | $(( 320 * 1000 / (ss > 0 ? ss : 1) )) |

Both write each file once with random data, flush it, rename it and remove
it; \`brenlow-cli\` also starts the service and the helper, and flushes the
folder once a file; \`shred -u\` renames each file once a character of its
name, flushing the folder each time.
EOF2
