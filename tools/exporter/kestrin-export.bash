# Completion of kestrin-export for bash: options, kinds, and job files by their pattern.

_kestrin_export() {
  local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]}
  # "--kind=wire" comes as three words.
  if [[ $word == = ]]; then
    word=
  elif [[ $option == = ]]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  # Words come as they were typed, names as they are.
  word=${word//\\/}
  word=${word#[\"\']}

  local -a wanted=()
  case $option in
    --kind) wanted=(-W 'wire boom poly point net all') ;;
    --jobs | --threads) wanted=(-W '1 2 4 8 16') ;;
    --out) wanted=(-d) ;;
    --base) wanted=(-f) ;;
    *)
      if [[ $word == -* ]]; then
        wanted=(-W '--kind --out --base --jobs --threads --all-sections --prj --summary --recursive --json
                    --quiet --help --version')
      fi
      ;;
  esac
  if ((${#wanted[@]})); then
    mapfile -t COMPREPLY < <(compgen "${wanted[@]}" -- "$word")
    [[ ${wanted[0]} == -W ]] && return
  else
    mapfile -t COMPREPLY < <(
      compgen -f -X '!*.sqlite' -- "$word"
      compgen -d -- "$word"
    )
  fi
  # Quotes what has blanks, and goes on below a folder.
  compopt -o filenames 2>/dev/null
}

complete -F _kestrin_export kestrin-export
