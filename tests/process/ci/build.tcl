# Builds all of them, and says which ones failed.
foreach component $argv { designs add $component }
set failed [catch {morvalen build -all -keep-going} states]
dict for {id state} $states {
    if {$state ne "Completed"} { puts "$id: $state" }
}
puts "[dict size [dict filter $states value Completed]] of [dict size $states] built"
exit $failed
