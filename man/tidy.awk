# Puts the paragraphs of scdoc where they have a text to follow, and keeps words whole: a file name that is
# hyphenated is another one. Newer ones of scdoc call a paragraph .PP.
/^\.PP?$/ { held = !after_heading; next }
/^\.RE$/ { print; next }
{
    if (held && !/^\.(SH|SS)/) print ".P"
    held = 0
    after_heading = /^\.(TH|SH|SS)/
    print
}
/^\.TH/ { print ".nh" }
