# Gives all components a version and writes a list of them.
set components [lassign $argv version]
set list [open ../RELEASE w]
foreach component $components {
    designs add $component
    morvalen version $version
    morvalen property released [clock format 0 -gmt 1 -format %Y] -type int
    design set author "The release script"
    puts $list [lindex [morvalen designs] end]
    design save
}
close $list
