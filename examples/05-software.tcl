# Builds a program in C by a build configuration, changes one of its sources, and builds again:
# only what is outdated runs.
#
#     morvalen --batch examples/05-software.tcl
#
# The steps are in checksum/component.xml; docs/builds.md says what they are made of.

set examples [file dirname [file normalize [info script]]]
set folder [file join [designs designs_path] software-[pid]]

# Shows a command as it would be typed, runs it, and shows its answer.
proc try {args} {
    puts "morvalen > $args"
    puts [uplevel #0 $args]
}

# Runs the build and tells the steps that ran, by the log in the target path.
proc build_now {} {
    set log [file join $::folder [build get target_path] build.log]
    file delete $log
    try build run
    set steps {}
    if {[file exists $log]} {
        set stream [open $log]
        foreach line [split [read $stream] "\n"] {
            if {[regexp {^\[\d+/\d+\] (.*)} $line -> step]} { lappend steps $step }
        }
        close $stream
    }
    puts "[llength $steps] steps ran: [join [lsort $steps] {, }]"
}

proc change {file text} {
    set stream [open [file join $::folder $file] a]
    puts $stream $text
    close $stream
}

file copy [file join $examples checksum] $folder
designs add [file join $folder component.xml]
try builds list
try build steps list
try build macros get CFLAGS
build_now
set stream [open [file join $folder build Debug check.txt]]
puts -nonewline [read $stream]
close $stream
build_now
puts "--- One source changes."
change sources/crc32.c "/* changed */"
build_now
puts "--- A header changes."
change headers/checksum.h "/* changed */"
build_now
puts "--- What the builds made is known to the design, and cleaned without the sources."
puts "[llength [files list generated]] generated files"
puts [lindex [split [design clean] "\n"] 0]
puts [lsort [glob -tails -directory $folder sources/* build/Debug/*.o]]
designs close morvalen.example.tools.checksum.1.0
file delete -force $folder
