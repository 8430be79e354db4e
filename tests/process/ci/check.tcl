# Each component opens, and every file that it names is there.
set bad 0
foreach component $argv {
    designs add $component
    foreach file [morvalen files] {
        if {![file exists $file]} {
            puts "$component: [file tail $file] is missing"
            incr bad
        }
    }
}
puts "[llength [morvalen designs]] components, $bad files missing"
exit [expr {$bad > 0}]
