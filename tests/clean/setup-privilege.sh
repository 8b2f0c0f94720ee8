#!/usr/bin/env bash
# Prepares the tests that need a real change of privilege: an unprivileged
# user with a home of its own, copies of the programs in a folder that user
# can read (a build folder under /root is not), and a sudo rule that lets the
# user start the helper copy, and nothing else, as root; `sudo -n` then
# stands in for pkexec. A second copy of the helper has no rule: sudo
# refuses it.
#
# This changes the machine, so it runs only when asked to:
# BRENLOW_PRIVILEGE_TESTS=1 (`make test` sets it when run as root). Without
# it, or without root, sudo or runuser, it exits 77 (skip). A set-up that
# fails part-way undoes itself; after the tests, teardown-privilege.sh
# removes it all.
#
#   setup-privilege.sh BUILD_DIR DEST_DIR [FILE...]   FILEs go to DEST_DIR/tests
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
source=$(cd "$here/../.." && pwd)
build=$1
dest=$2
shift 2
user=brenlow-clean
rule=/etc/sudoers.d/brenlow-clean-test

if [ "${BRENLOW_PRIVILEGE_TESTS:-}" != 1 ]; then
  echo "setup-privilege: not asked to (BRENLOW_PRIVILEGE_TESTS=1 makes the test user)" >&2
  exit 77
fi
if [ "$(id -u)" -ne 0 ] || ! command -v sudo >/dev/null || ! command -v runuser >/dev/null; then
  echo "setup-privilege: needs root, sudo and runuser" >&2
  exit 77
fi

trap 'status=$?; [ $status -eq 0 ] || bash "$here/teardown-privilege.sh" "$dest" || true; exit $status' EXIT

# A leftover of a run that was killed goes first: the home must be new.
bash "$here/teardown-privilege.sh" "$dest"
install -d -m 755 "$dest" "$dest/libexec/brenlow" "$dest/bin" "$dest/tests" "$dest/share/brenlow"
useradd --system --create-home --home-dir "$dest/home" --shell /usr/sbin/nologin "$user"
install -d -m 700 -o "$user" -g "$(id -gn "$user")" "$dest/home/tmp"

cp -r "$source/resources/linux" "$dest/share/brenlow/"
chmod -R a+rX "$dest/share"
install -m 755 "$build/libexec/brenlow/brenlow-service" "$build/libexec/brenlow/brenlow-helper" \
  "$dest/libexec/brenlow/"
install -m 755 "$build/libexec/brenlow/brenlow-helper" "$dest/libexec/brenlow/brenlow-helper-unlisted"
install -m 755 "$build/bin/brenlow-cli" "$dest/bin/"
for f in "$@"; do
  install -m 755 "$f" "$dest/tests/"
done

printf '%s ALL=(root) NOPASSWD: %s\n' "$user" "$dest/libexec/brenlow/brenlow-helper" >"$rule.new"
chmod 440 "$rule.new"
visudo -cf "$rule.new" >/dev/null
mv "$rule.new" "$rule"
