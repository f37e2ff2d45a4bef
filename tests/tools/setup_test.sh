#!/usr/bin/env bash
# Runs tools/setup on a machine of paper: programs of our own tell which packages there are and note what is asked.
# Usage: setup_test.sh ROOT
set -euo pipefail
root=$1
machine=$(mktemp -d)
trap 'rm -rf "$machine"' EXIT
export MACHINE=$machine
mkdir "$machine/bin"
for program in bash env sed sort comm cat mktemp rm; do ln -s "$(command -v "$program")" "$machine/bin"; done

fake() { # name, body
  printf '#!/usr/bin/env bash\n%s\n' "$2" >"$machine/bin/$1"
  chmod +x "$machine/bin/$1"
}
fake dpkg-query 'shift 2
for package in "$@"; do
  case " $(<"$MACHINE/missing") " in
    *" $package "*) echo "no packages found matching $package" >&2; status=1 ;;
    *" $package:removed "*) echo "$package config-files" ;;
    *) echo "$package installed" ;;
  esac
done
exit "${status:-0}"'
fake id 'echo "$(<"$MACHINE/user")"'
fake apt-get 'echo "apt-get $*" >>"$MACHINE/asked"; echo "the words of apt-get"; exit "$(<"$MACHINE/apt_status")"'

passed=0 failed=0
# Sets the machine up with what is missing, who asks, and how apt-get ends; gives `said`, `status` and `asked`.
setup() { # missing packages, user id, status of apt-get
  echo "$1" >"$machine/missing"
  echo "$2" >"$machine/user"
  echo "$3" >"$machine/apt_status"
  : >"$machine/asked"
  said=$(PATH=$machine/bin "$root/tools/setup" 2>&1) && status=0 || status=$?
  asked=$(<"$machine/asked")
}
expect() { # what, a condition to be evaluated
  if eval "$2"; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    printf 'FAILED: %s (status %s)\n%s\n%s\n' "$1" "$status" "$said" "$asked"
  fi
}

setup '' 0 0
expect 'all is there: not a word, apt-get is left alone' '[[ $status == 0 && -z $said && -z $asked ]]'
setup 'lld cmake:removed' 0 0
expect 'what is missing is installed' '[[ $status == 0 && $asked == *update*install*" cmake lld" ]]'
expect 'apt-get stays quiet when it succeeds' '[[ $said == *"cmake lld" && $said != *"words of apt-get"* ]]'
setup lld 0 100
expect 'apt-get fails: its words and an error' '[[ $status == 1 && $said == *"words of apt-get"*failed* ]]'
setup lld 1000 0
expect 'neither root nor sudo: what to do is told' '[[ $status == 1 && -z $asked && $said == *"apt-get install lld"* ]]'
fake sudo 'echo sudo >>"$MACHINE/asked"; exec "$@"'
setup lld 1000 0
expect 'not root: sudo asks' '[[ $status == 0 && $asked == sudo*update*sudo*install* ]]'

echo "$passed passed, $failed failed"
((failed == 0))
