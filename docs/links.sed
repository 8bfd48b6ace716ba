# Filters the pages for the reference, which cannot link to a heading: leaves the text of such a link.
s/\[([^]]*)\]\(#[^)]*\)/\1/g
