# Checks components, as a step of continuous integration does: each must open, and every file that
# it names must exist. Ends with status 1 when something is wrong.
#
#     morvalen --batch examples/02-check.tcl COMPONENT...

# What is wrong with a component, a list of texts; why one does not open is in the log, which goes
# to standard error.
proc problems {component} {
    if {[catch {designs add $component} message]} {
        return [list $message]
    }
    set id [lindex [morvalen designs] end]
    set found {}
    foreach file [morvalen files] {
        if {![file exists $file]} {
            lappend found "$file is missing"
        }
    }
    designs close $id
    return $found
}

set bad 0
foreach component $argv {
    set found [problems $component]
    if {$found eq ""} {
        puts "good  $component"
        continue
    }
    incr bad
    puts "bad   $component"
    foreach problem $found { puts "      $problem" }
}
puts "$argc checked, $bad bad"
exit [expr {$bad > 0}]
