#!/usr/bin/env bash
# Prepares the tests that need a real change of privilege: an unprivileged
# user, copies of the programs in a folder that user can read (a build
# folder under /root is not), and a sudo rule that lets the user start the
# helper copy, and nothing else, as root; `sudo -n` then stands in for
# pkexec. A second copy of the helper has no rule: sudo refuses it.
# Idempotent. Needs root; exits 77 (skip) without it.
#
#   setup-privilege.sh BUILD_DIR DEST_DIR [FILE...]   FILEs go to DEST_DIR/tests
set -euo pipefail

source=$(cd "$(dirname "$0")/../.." && pwd)
build=$1
dest=$2
shift 2
user=brenlow-clean

if [ "$(id -u)" -ne 0 ] || ! command -v sudo >/dev/null || ! command -v runuser >/dev/null; then
  echo "setup-privilege: needs root, sudo and runuser" >&2
  exit 77
fi
home=/var/lib/$user
id -u "$user" >/dev/null 2>&1 ||
  useradd --system --no-create-home --home-dir "$home" --shell /usr/sbin/nologin "$user"
# The property cases build their trees in the user's real home, where the
# helper acts for that user.
[ "$(getent passwd "$user" | cut -d: -f6)" = "$home" ] || usermod --home "$home" "$user"
install -d -o "$user" -g "$(id -gn "$user")" -m 700 "$home"

rm -rf "$dest"
install -d -m 755 "$dest" "$dest/libexec/brenlow" "$dest/cli" "$dest/tests" "$dest/share/brenlow"
cp -r "$source/resources/linux" "$dest/share/brenlow/"
chmod -R a+rX "$dest/share"
install -m 755 "$build/libexec/brenlow/brenlow-service" "$build/libexec/brenlow/brenlow-helper" \
  "$dest/libexec/brenlow/"
install -m 755 "$build/libexec/brenlow/brenlow-helper" "$dest/libexec/brenlow/brenlow-helper-unlisted"
install -m 755 "$build/cli/brenlow-cli" "$dest/cli/"
for f in "$@"; do
  install -m 755 "$f" "$dest/tests/"
done

rule=/etc/sudoers.d/brenlow-clean-test
printf '%s ALL=(root) NOPASSWD: %s\n' "$user" "$dest/libexec/brenlow/brenlow-helper" >"$rule.new"
chmod 440 "$rule.new"
visudo -cf "$rule.new" >/dev/null
mv "$rule.new" "$rule"
