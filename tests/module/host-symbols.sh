#!/usr/bin/env bash
# Compares what the module asks of its host's libraries with the list beside this script: nothing
# may be missing from it, and nothing may stand in it for nothing.
#
#   host-symbols.sh LIST elf NM MODULE
#   host-symbols.sh LIST pe OBJDUMP MODULE HOST_LIBRARY
#
# The C library, the C++ runtime and the system's own libraries are left out. ELF symbols of those
# have a version; a DLL names the library that each of its symbols comes from. The names are
# compared as C++ writes them, with the standard library's types shortened.
set -euo pipefail
list=$1 kind=$2 tool=$3 module=$4

# Symbols of the module that the host has to offer, mangled.
asked() {
    if [ "$kind" = elf ]; then
        # What begins with two underscores or _ITM_ belongs to the compiler and its sanitizers.
        "$tool" -D --undefined-only --format=just-symbols "$module" |
            grep -v -e '@' -e '^__' -e '^_ITM_'
    else
        "$tool" -p "$module" | tr -d '\r' |
            awk -v host="$(basename "$5")" '
                /DLL Name:/ { fromHost = $3 == host; fromWindows = $3 == "USER32.dll" }
                /^\t[0-9a-f]+\t *[0-9]+ / && (fromHost || fromWindows) { print $3 }'
    fi
}

shorten() {
    c++filt | sed -E \
        -e 's/\[abi:cxx11\]//g' \
        -e 's/std::(__cxx11::)?basic_string<wchar_t, std::char_traits<wchar_t>, std::allocator<wchar_t> >/std::wstring/g' \
        -e 's/std::(__cxx11::)?basic_string<char, std::char_traits<char>, std::allocator<char> >/std::string/g' \
        -e 's/std::basic_string_view<wchar_t, std::char_traits<wchar_t> >/std::wstring_view/g' \
        -e 's/std::vector<([^,]*), std::allocator<[^>]*> >/std::vector<\1>/g' \
        -e 's/std::__exception_ptr::exception_ptr/std::exception_ptr/g' \
        -e 's/_PROPSHEETPAGEW/PROPSHEETPAGEW/g' \
        -e 's/long long/long/g' |
        sed -E 's/^([A-Za-z]+W?|EndDialog)\(HW?(ND|INSTANCE)__\*.*/\1/' | sort -u
}

wanted=$(sed -n 's/^[^#\t][^\t]*\t//p' "$list" | sort -u)
if [ "$kind" = pe ]; then
    # A DLL has a copy of its own of what the runtime knows of a base class.
    wanted=$(grep -v '^typeinfo for ' <<<"$wanted")
fi
found=$(asked "$@" | shorten)
extra=$(comm -13 <(printf '%s\n' "$wanted") <(printf '%s\n' "$found"))
unused=$(comm -23 <(printf '%s\n' "$wanted") <(printf '%s\n' "$found"))
if [ -n "$extra$unused" ]; then
    printf 'the module asks for what no host has to offer:\n%s\n' "$extra" >&2
    printf 'the module does not ask for:\n%s\n' "$unused" >&2
    exit 1
fi
printf '%s\n' "$found" | wc -l
