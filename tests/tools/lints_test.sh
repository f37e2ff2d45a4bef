#!/usr/bin/env bash
# Plants one fault after the other in a small tree and expects the lint for it to name the place and the reason.
# Usage: lints_test.sh ROOT
set -euo pipefail
root=$1
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
mkdir "$tree/tools"
cp "$root"/tools/{lint,check-house,check-dependencies} "$tree/tools"
cp "$root/.clang-format" "$tree"
cd "$tree"
git init -q .

mkdir -p src/{context/values,common,wage,orders,entry} platform/{tsql/public,sqlite/public,odbc,qt} suite host tests/wage
for header in src/context/values/value src/common/text src/wage/f_ara src/orders/f_list src/entry/c_lohn \
  platform/tsql/public/type platform/tsql/lexer platform/sqlite/public/database suite/messages; do
  printf '#pragma once\n' >"$header.h"
done
echo 'tarvoni_library(tarvoni_common)' >src/common/CMakeLists.txt
echo 'tarvoni_library(tarvoni_sqlite)' >platform/sqlite/CMakeLists.txt

passed=0 failed=0
count() { # what, whether it holds (0)
  if (($2 == 0)); then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    echo "FAILED: $1"
  fi
}

# Runs a lint on the tree with one more file; gives its words in `said` and its exit status in `status`.
run_with() { # lint, path, content
  local before=
  [[ ! -e $2 ]] || before=$(<"$2")
  printf '%b' "$3" >"$2"
  said=$("tools/$1" 2>&1) && status=0 || status=$?
  if [[ -n $before ]]; then echo "$before" >"$2"; else rm "$2"; fi
}

refuses() { # lint, path, content, words of the report
  run_with "$1" "$2" "$3"
  local rc=1
  if ((status != 0)) && [[ $said == *"$2"*"$4"* ]]; then rc=0; fi
  count "$1 lets pass $2: $4" "$rc"
}

accepts() { # lint, path, content
  run_with "$1" "$2" "$3"
  count "$1 refuses $2: $said" "$status"
}

house=check-house
accepts $house src/wage/a.cpp 'int Answer();\n'
refuses $house src/wage/a.cpp "$(printf 'int a;\\n%.0s' {1..601})" 'longer than 600 lines'
refuses $house src/wage/a.h 'int Answer();\n' '#pragma once'
refuses $house src/wage/a.cpp 'int Answer();' 'line break'
refuses $house src/wage/a.cpp 'int Answer();  // TODO: ask\n' 'unfinished'
refuses $house tests/wage/a_test.cpp 'GTEST_SKIP();\n' 'does not run'
refuses $house src/wage/a.cpp '\tint Answer();\n' 'tab'
refuses $house README.md 'Answer \n' 'blanks'
accepts $house tests/wage/a.test 'Answer \n'
refuses $house suite/a.cpp 'Open(SqlText::Verbatim(typed));\n' 'made of any text'
accepts $house host/a.cpp 'Open(SqlText::Verbatim(typed));\n'

format=lint
refuses $format src/wage/a.cpp 'int  Answer( );\n' 'clang-format'

way=check-dependencies
accepts $way src/wage/a.cpp '#include "src/common/text.h"\n#include "src/context/values/value.h"\n#include <vector>\n'
refuses $way src/wage/a.cpp '#include "src/orders/f_list.h"\n' 'src/wage may not use src/orders'
refuses $way src/common/a.cpp '#include "src/wage/f_ara.h"\n' 'src/common may not use src/wage'
refuses $way src/context/a.cpp '#include "src/common/text.h"\n' 'src/context may not use src/common'
refuses $way src/wage/a.cpp '  #  include "platform/sqlite/public/database.h"\n' 'may not use platform/sqlite'
refuses $way platform/tsql/a.cpp '#include "src/context/values/value.h"\n' 'may not use src/context'
refuses $way platform/odbc/a.cpp '#include "platform/tsql/public/type.h"\n' 'may not use platform/tsql'
accepts $way platform/sqlite/a.cpp '#include "platform/tsql/public/type.h"\n#include <sqlite3.h>\n'
refuses $way platform/sqlite/a.cpp '#include "platform/tsql/lexer.h"\n' 'not public'
refuses $way suite/a.cpp '#include "src/common/text.h"\n' 'may not use src/common'
accepts $way host/a.cpp '#include "src/entry/c_lohn.h"\n#include "suite/messages.h"\n#include <fmt/format.h>\n'
refuses $way host/a.cpp '#include "src/wage/f_ara.h"\n' 'may not use src/wage'
refuses $way host/a.cpp '#include <sqlite3.h>\n' 'may not use <sqlite3.h>'
refuses $way host/a.cpp '#include <QWidget>\n' 'may not use <QWidget>'
refuses $way host/a.cpp '#include <QtWidgets/QDialog>\n' 'may not use <QtWidgets/QDialog>'
accepts $way host/desktop_window.cpp '#include <QWidget>\n'
refuses $way platform/sqlite/a.cpp '#include <sqlext.h>\n' 'may not use <sqlext.h>'
refuses $way src/wage/a.cpp '#include <fmt/format.h>\n' 'may not use <fmt/format.h>'
refuses $way platform/tsql/a.cpp '#include <unistd.h>\n' 'may not use <unistd.h>'
refuses $way src/wage/a.cpp '#include "f_ara.h"\n' 'from the root'
refuses $way src/wage/a.cpp '#include "src/wage/gone.h"\n' 'no such file'
refuses $way src/wage/CMakeLists.txt 'tarvoni_library(tarvoni_wage\n  tarvoni_sqlite)\n' 'may not use platform/sqlite'
refuses $way src/common/CMakeLists.txt 'tarvoni_library(tarvoni_common fmt::fmt)\n' 'may not use fmt::fmt'
refuses $way suite/CMakeLists.txt 'target_link_libraries(tarvoni_suite PUBLIC Qt6::Widgets)\n' 'may not use Qt6::Widgets'
accepts $way host/CMakeLists.txt 'add_executable(tarvoni a.cpp)\ntarget_link_libraries(tarvoni tarvoni_sqlite Qt6::Widgets)\n'

echo "$passed passed, $failed failed"
((failed == 0))
