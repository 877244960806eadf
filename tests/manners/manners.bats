#!/usr/bin/env bats
# How the command behaves as a program among others. QSX_BUILD is the build folder.

setup() {
   tool=$QSX_BUILD/bin/qsxreport
   example=$BATS_TEST_DIRNAME/../../examples/debian-host
   cd "$BATS_TEST_TMPDIR"
}

@test "every command of the help has a manual page, and every option of it stands there" {
   for command in $("$tool" --help | sed -n '/^Commands:/,/^$/s/^  \([a-z-]*\) .*/\1/p'); do
      page=$QSX_BUILD/share/man/man1/qsxreport-$command.1.gz
      [ -s "$page" ] || { echo "no manual page of $command: docs/man/$command.scd makes it"; false; }
      text=$(zcat "$page" | sed 's/\\//g')
      for option in $("$tool" "$command" --help | grep -o -- '^ *\(-[a-z],\)\?--[a-z-]*' | grep -o -- '--[a-z-]*'); do
         grep -q -F -e "$option" <<<"$text" || { echo "$option is missing from the page of $command"; false; }
      done
   done
}

complete_line() {
   COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMPREPLY=()
   _qsxreport
   echo "${COMPREPLY[*]}"
}

@test "bash completes commands, options, formats and folders" {
   complete() { :; }
   source "$QSX_BUILD/share/bash-completion/completions/qsxreport"
   [ "$(complete_line qsxreport comp)" = compare ]
   [ "$(complete_line qsxreport compare --exit)" = --exit-code ]
   [ -z "$(complete_line qsxreport check --outp)" ]
   [ "$(complete_line qsxreport report --format tr)" = trace ]
   mkdir pages && touch pagefile
   [ "$(complete_line qsxreport report -o pag)" = pages ]
   [ "$(complete_line qsxreport report pagef)" = pagefile ]
}

@test "the completions of zsh and fish are read by their shells where these are installed" {
   ! command -v zsh >/dev/null || zsh -n "$QSX_BUILD/share/zsh/vendor-completions/_qsxreport"
   ! command -v fish >/dev/null || fish -n "$QSX_BUILD/share/fish/vendor_completions.d/qsxreport.fish"
   grep -q -- "'\*--exit-code\[" "$QSX_BUILD/share/zsh/vendor-completions/_qsxreport"
   grep -q -- "from compare' -l exit-code " "$QSX_BUILD/share/fish/vendor_completions.d/qsxreport.fish"
}

@test "results go to standard output, messages to standard error, and quiet means errors only" {
   "$tool" report "$example" -o pages >out 2>err
   [ ! -s out ]
   "$tool" report "$example" -o quiet --quiet >out 2>err
   [ ! -s out ] && [ ! -s err ]
   "$tool" report "$example" -o loud -v 2>err
   grep -q . err
   run "$tool" report missing.mof -o none --quiet
   [ "$status" -eq 3 ]
   [[ $output == *missing.mof* ]]
   [ ! -e none ]
}

@test "a collection comes from standard input by -" {
   cat "$example"/*.mof | "$tool" check - >out
   grep -q instances out
}

@test "a mistyped command, option or format gets a suggestion and exit code 2" {
   run "$tool" reprot x
   [ "$status" -eq 2 ] && [[ $output == *"did you mean 'report'"* ]]
   run "$tool" report x -o y --forse
   [ "$status" -eq 2 ] && [[ $output == *"did you mean '--force'"* ]]
   run "$tool" report x -o y --format htm
   [ "$status" -eq 2 ] && [[ $output == *"did you mean 'html'"* ]]
}

@test "a closed pipe ends the program without a message" {
   { "$tool" catalogue "$example" 2>err; echo "${PIPESTATUS[0]}" >code; } | head -c 10 >/dev/null
   [ ! -s err ] || { cat err; false; }
}

@test "what only a terminal shows: progress, colour, NO_COLOR, the interrupt key" {
   /usr/bin/python3 "$BATS_TEST_DIRNAME/terminal.py" "$tool" "$example"
}
