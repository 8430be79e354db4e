# Opens each component, and builds all of them in one run.
foreach component [lassign $argv jobs] { designs add $component }
morvalen build -all -jobs $jobs
