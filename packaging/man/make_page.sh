#!/bin/sh
# Makes the man page of a program from its help and a file with more sections. The program is asked
# in a folder of its own, as one that lies in a folder of its user keeps its settings there, with the
# language among them.
#
# Usage: make_page.sh HELP2MAN PROGRAM VERSION MORE-SECTIONS PAGE
set -eu
help2man=$1
program=$2
version=$3
more=$4
page=$5
name=$(basename "$program")

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/asked"
cp "$program" "$folder/asked/$name"
printf '[global]\nlanguage=10000\n' > "$folder/asked/larkspur.ini"

# The help as help2man reads it: further usages with "or:", and backslashes as troff has them. What the
# program takes besides options is explained in MORE-SECTIONS.
cat > "$folder/tidy" <<'END'
/^  DRAWING/,/^$/d
s/^       quillon /  or:  quillon /
/^\(Usage:\|  or:\)/s/\\/\\(rs/g
END
cat > "$folder/$name" <<END
#!/bin/sh
"$folder/asked/$name" "\$@" | sed -f "$folder/tidy" |
  awk '!options && (/^ +[-\/]/ || /^[A-Z].*:\$/) { options = 1; print "Options:\n" } { print }'
END
chmod +x "$folder/$name"
LC_ALL=C XDG_CONFIG_HOME=$folder "$help2man" --no-info --locale=C --section=1 \
  --manual="User Commands" --source="Quillon $version" --version-string="$version" \
  --include="$more" --output="$page" "$folder/$name"
