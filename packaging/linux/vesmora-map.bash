# Completion of vesmora-map for bash.
_vesmora_map() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local commands='info check compile resave render diff prefab rescue'
  local command=${COMP_WORDS[1]-} kind=${COMP_WORDS[2]-}
  local several='--json --help --jobs --name' options=
  if ((COMP_CWORD == 1)); then
    mapfile -t COMPREPLY < <(compgen -W "$commands --help --version" -- "$word")
    return
  fi
  if [[ $command == prefab ]] && ((COMP_CWORD == 2)); then
    mapfile -t COMPREPLY < <(compgen -W 'export import' -- "$word")
    return
  fi
  case $previous in
    --jobs | -j | --name | --size | --zoom | --center | --at) return ;;
    --textures)
      mapfile -t COMPREPLY < <(compgen -d -- "$word")
      return
      ;;
    --show)
      mapfile -t COMPREPLY < <(compgen -P "${word%"${word##*,}"}" \
        -W 'all polygons spawns sceneries colliders waypoints advanced' -- "${word##*,}")
      return
      ;;
  esac
  case $command in
    info) options=$several ;;
    check) options="$several --no-hints" ;;
    compile | resave) options="$several --output --in-place" ;;
    render)
      options="$several --output --size --zoom --center --show --filled --textures --poster --svg"
      ;;
    diff) options='--json --help' ;;
    prefab)
      options="$several --output"
      [[ $kind != import ]] || options+=' --in-place --at'
      ;;
    rescue) options='--json --help --output' ;;
  esac
  if [[ $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  fi
}
complete -o filenames -F _vesmora_map vesmora-map
