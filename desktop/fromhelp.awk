# Fills a template with what "morvalen --help" says: the manual page and the completions are made of
# the same text that users of the program see.
#
#     awk -v version=1.0 -v date=2026-01-31 -f fromhelp.awk HELP TEMPLATE
#
# A line of the template that is a name between two @ is replaced by as many lines as it stands for;
# @VERSION@ and @DATE@ may stand within a line.

function roff(text)
{
    gsub(/\\/, "\\e", text)
    gsub(/-/, "\\-", text)
    gsub(/'/, "\\(aq", text)
    return text
}

function add(list, text) { return list (list == "" ? "" : "\n") text }

# A paragraph of running text ends: it goes to its section.
function end_paragraph()
{
    if (paragraph == "")
        return
    if (paragraph ~ /^Exit status: /)
        exit_status = roff(substr(paragraph, 14))
    else
        description = add(description, (description == "" ? "" : ".PP\n") roff(paragraph))
    paragraph = ""
}

# An option with all its text: NAMES is "-h, --help", "--batch SCRIPT [ARG...]" and the like.
function end_option(   words, count, i, spelled, value)
{
    if (names == "")
        return
    page = add(page, ".TP\n.B " roff(names) "\n" roff(effect_text))
    count = split(names, words, /,? /)
    value = ""
    for (i = 1; i <= count; ++i) {
        if (words[i] ~ /^-/) {
            plain = add(plain, "        " words[i])
            spelled = spelled (spelled == "" ? "" : " ") words[i]
        } else if (value == "") {
            value = words[i]
        }
    }
    count = split(spelled, words, " ")
    for (i = 1; i <= count; ++i)
        if (value != "")
            values = add(values, "        [" words[i] "]=" value)
    arguments = add(arguments, zsh(spelled, words, count, value))
    names = ""
}

function zsh(spelled, words, count, value,   line, effect)
{
    effect = effect_text
    gsub(/\\|\[|\]|:/, "\\\\&", effect)
    gsub(/'/, "'\\''", effect)
    if (count > 1)
        line = "'(" spelled ")'{" commas(words, count) "}'"
    else if (spelled ~ /^--/)
        line = "'" spelled (value == "" ? "" : "=")
    else
        line = "'*" spelled
    return "    " line "[" effect "]" action(spelled, value) "' \\"
}

function commas(words, count,   i, text)
{
    for (i = 1; i <= count; ++i)
        text = text (i > 1 ? "," : "") words[i]
    return text
}

function action(spelled, value)
{
    if (value == "")
        return ""
    if (spelled == "--batch")
        return ":script:_files:*:argument:_files"
    if (value == "DIR")
        return ":folder:_files -/"
    if (value == "LEVEL")
        return ":level:(error warning info debug)"
    return ":" tolower(value) ": "
}

# The help text.
NR == FNR && /^(Usage:)?  *morvalen / {
    sub(/^(Usage:)?  */, "")
    usage = add(usage, (usage == "" ? "" : ".br\n") ".B morvalen\n" roff(substr($0, 10)))
    next
}
NR == FNR && /^  -/ {
    end_paragraph()
    end_option()
    text = substr($0, 3)
    place = match(text, /  +/)
    names = place ? substr(text, 1, place - 1) : text
    effect_text = place ? substr(text, place + RLENGTH) : ""
    next
}
NR == FNR && names != "" && /^   / {
    sub(/^ +/, "")
    effect_text = effect_text (effect_text == "" ? "" : " ") $0
    next
}
NR == FNR && /^$/ {
    end_paragraph()
    end_option()
    next
}
NR == FNR {
    end_option()
    paragraph = paragraph (paragraph == "" ? "" : " ") $0
    next
}

# The template.
FNR == 1 {
    end_paragraph()
    end_option()
    lines["@USAGE@"] = usage
    lines["@DESCRIPTION@"] = description
    lines["@EXIT@"] = exit_status
    lines["@VALUES@"] = values
    lines["@ARGUMENTS@"] = arguments
    lines["@OPTIONS@"] = FILENAME ~ /\.1\.in$/ ? page : plain
}
$0 in lines {
    print lines[$0]
    next
}
{
    gsub(/@VERSION@/, version)
    gsub(/@DATE@/, date)
    print
}
