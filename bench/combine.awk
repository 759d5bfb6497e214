# Makes one table of those of two libraries, "g++ / clang" in each cell, of several runs
# the best for each. The last column is how many times as long clang's library takes for a dump
# and for a readback. Status 1 where a number that must be reached is missed.
#   awk -f bench/combine.awk library=1 G++_TABLES... library=2 CLANG_TABLES...
BEGIN {
  FS = " *[|] *"
  most = 1.2  # times as long
}

# "23.1 (20, 30)" in columns 3 to 6: a dump and a readback, each x baseline and / floor.
NF == 7 && $2 != "operation" && $2 != "---" {
  if (!($2 in known)) titles[++rows] = $2
  known[$2]
  for (column = 3; column <= 6; ++column) {
    if ($column == "") continue
    value = $column + 0
    at = $2 SUBSEP column SUBSEP library
    if (!(at in best) || (column % 2 ? value > best[at] : value < best[at])) best[at] = value
    if (match($column, /\(.*\)/)) goals[$2, column] = substr($column, RSTART, RLENGTH)
  }
}

function cell(title, column,    first, second, must, worst) {
  if (!((title, column, 2) in best)) return ""
  first = best[title, column, 1]
  second = best[title, column, 2]
  must = substr(goals[title, column], 2) + 0
  worst = (column % 2 ? first < second : first > second) ? first : second
  return sprintf("%.2f / %.2f %s", first, second, goals[title, column]) \
    (must && (column % 2 ? worst < must : worst > must) ? missedOne() : "")
}

function times(title, column,    ratio) {
  if (!((title, column, 2) in best)) return "-"
  ratio = best[title, column, 1] / best[title, column, 2]
  return sprintf("%.2f", ratio) (ratio > most ? missedOne() : "")
}

function missedOne() { ++missed; return " MISSED" }

END {
  print "g++ / clang, measured (must, aim). A column \"x baseline\" is baseline / library, a"
  print "column \"/ floor\" library / floor.\n"
  print "| operation | dump x baseline | dump / floor | readback x baseline | readback / floor | clang / g++ (" most ") |"
  print "| --- | --- | --- | --- | --- | --- |"
  for (row = 1; row <= rows; ++row) {
    title = titles[row]
    printf "| %s |", title
    for (column = 3; column <= 6; ++column) printf " %s |", cell(title, column)
    print " " times(title, 3) ", " times(title, 5) " |"
  }
  print "\n" (missed ? missed " missed." : "Nothing that must be reached is missed.")
  exit missed > 0
}
