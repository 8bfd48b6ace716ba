# Filters mcuservice.h for the reference: puts the table of its record, from vehicle-records.md,
# above each record signal and getter. Run in the source root.
BEGIN {
    while ((getline line < "docs/vehicle-records.md") > 0) {
        if (line ~ /^<!-- record /) {
            section = line
            gsub(/^<!-- record | -->$/, "", section)
            getter = ""
        } else if (line ~ /^<!-- end/) {
            section = ""
        } else if (section && match(line, /^- Getter: `[A-Za-z0-9]+\(/)) {
            getter = substr(line, 12, RLENGTH - 12)
        } else if (section && line ~ /^\|/) {
            tables[section] = tables[section] "    /// " line "\n"
            if (getter)
                tables[getter] = tables[section]
        }
    }
}
match($0, /[A-Za-z0-9_]+\(/) && !/^ *\/\// {
    name = substr($0, RSTART, RLENGTH - 1)
    if (name in tables) {
        printf "    ///\n%s", tables[name]
    }
}
{ print }
