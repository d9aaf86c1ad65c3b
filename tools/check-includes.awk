# What tools/check-includes.sh finds wrong. It reads four files: the table, the names of all sources and headers, who
# includes what, and the facts that cmake/links.cmake writes.
FNR == 1 { part++ }

part == 1 && / never reaches / { never[$1] = $4; next }
part == 1 && NF {
  row[$1]
  for (i = 3; i <= NF; i++)
    if ($i ~ /^</) headers[$1] = headers[$1] " " $i
    else allowed[$1, $i]
}
part == 2 {
  file[$1]
  if (!(folder($1) in row)) print $1 ": stands in a folder that no rule knows"
}
part == 3 {
  used = $2
  if (used ~ /^"/) {
    used = substr(used, 2, length(used) - 2)
    includes[$1] = includes[$1] " " used
  }
  if (!may_include(folder($1), used)) print $1 ": may not include " used
}
part == 4 && $1 == "target" {
  place[$2] = $4 == "" ? "." : $4
  # An interface holds no code: it is a way of linking what does.
  if ($3 ~ /LIBRARY$/ && $3 !~ /^INTERFACE/) libraries[place[$2]] = libraries[place[$2]] " " $2
}
part == 4 && $1 == "source" { sources[$2] = sources[$2] " " $3 }
part == 4 && $1 == "link" { links[$2] = links[$2] " " $3 }
part == 4 && $1 == "passes" { passes[$2] = passes[$2] " " $3 }

END {
  for (name in file)
    if (folder(name) in never) {
      split("", walked)
      chain = reaches(name, never[folder(name)])
      if (chain) print name ": reaches " never[folder(name)] " by " chain
    }
  for (from in libraries)
    if (from != "." && split(libraries[from], names) > 1)
      print from ": is more than one library:" libraries[from]
  for (target in place) check_target(target)
}

function folder(path) {
  sub(/\/?[^\/]*$/, "", path)
  return path
}

# The folder of the whole project holds flags alone: they may be linked everywhere, and link nothing.
function may_use(from, to) { return from == to || to == "." || (from SUBSEP to) in allowed }

# Standard headers have no dot, no slash and no capital; everything else in brackets must be allowed by name.
function may_include(from, what,    i, count, begins) {
  if (what !~ /^</) return folder(what) != "" && may_use(from, folder(what))
  if (what ~ /^<[a-z0-9_]+>$/) return 1
  count = split(headers[from], begins)
  for (i = 1; i <= count; i++)
    if (index(what, begins[i]) == 1) return 1
  return 0
}

# The chain of includes by which a file comes to a folder, or nothing.
function reaches(name, banned,    i, count, next_ones, chain) {
  walked[name]
  count = split(includes[name], next_ones)
  for (i = 1; i <= count; i++) {
    if (folder(next_ones[i]) == banned) return next_ones[i]
    if (next_ones[i] in walked) continue
    chain = reaches(next_ones[i], banned)
    if (chain) return next_ones[i] " > " chain
  }
  return ""
}

# A target links what its folder may use, and has by its links whatever its files include.
function check_target(target,    i, count, names) {
  split("", linked)
  split("", seen)
  split("", walked)
  seen[place[target]]
  count = split(links[target] passes[target], names)
  for (i = 1; i <= count; i++)
    if (names[i] in place && !may_use(place[target], place[names[i]]))
      print place[target] ": " target " may not link " names[i] " of " place[names[i]]
  count = split(links[target], names)
  for (i = 1; i <= count; i++) see(names[i])
  count = split(sources[target], names)
  for (i = 1; i <= count; i++) check_seen(target, names[i])
}

# What a library passes on is seen with it.
function see(target,    i, count, names) {
  linked[target]
  seen[place[target]]
  count = split(passes[target], names)
  for (i = 1; i <= count; i++) if (!(names[i] in linked)) see(names[i])
}

# Headers of the same folder, and of those that are no library, count as files of the target.
function check_seen(target, name,    i, count, next_ones, from) {
  walked[name]
  count = split(includes[name], next_ones)
  for (i = 1; i <= count; i++) {
    from = folder(next_ones[i])
    if (from in libraries && !(from in seen))
      print place[target] ": " target " includes " next_ones[i] ", but has no link to " from
    if ((from == folder(name) || !(from in libraries)) && !(next_ones[i] in walked)) check_seen(target, next_ones[i])
  }
}
