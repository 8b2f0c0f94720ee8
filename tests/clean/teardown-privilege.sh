#!/usr/bin/env bash
# Undoes setup-privilege.sh: the test user, its home, the sudo rule and the
# copied programs. Safe to run again, and when nothing was set up. Ends with
# a check: status 1 when the user or the rule is still there.
#
#   teardown-privilege.sh [--wait] DEST_DIR
# --wait: first wait for a test run that is using them (it locks the sudo
# rules' folder meanwhile).
set -uo pipefail

wait=0
if [ "$1" = --wait ]; then
  wait=1
  shift
fi
dest=$1
user=brenlow-clean
rule=/etc/sudoers.d/brenlow-clean-test

if [ "${BRENLOW_PRIVILEGE_TESTS:-}" != 1 ] || [ "$(id -u)" -ne 0 ]; then
  exit 0 # nothing was set up by this run
fi
if [ $wait = 1 ] && [ -d /etc/sudoers.d ]; then
  exec 9</etc/sudoers.d
  flock 9
fi
rm -f "$rule" "$rule.new"
if id -u "$user" >/dev/null 2>&1; then
  # --force: a test process of the user that is still ending must not keep it.
  userdel --force --remove "$user" 2>/dev/null || userdel --force "$user"
fi
# The home is inside DEST_DIR; what the helper's tests locked is unlocked first.
if [ -e "$dest" ]; then
  chmod -R u+rwx "$dest" 2>/dev/null
  rm -rf "$dest"
fi

left=0
if id -u "$user" >/dev/null 2>&1; then
  echo "teardown-privilege: the user $user is still there" >&2
  left=1
fi
if [ -e "$rule" ]; then
  echo "teardown-privilege: $rule is still there" >&2
  left=1
fi
if [ -e "$dest" ]; then
  echo "teardown-privilege: $dest is still there" >&2
  left=1
fi
exit $left
