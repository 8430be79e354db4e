# Lints and simulates a counter with Icarus Verilog (Debian's package iverilog).
#
#     morvalen --batch examples/06-hardware.tcl
#
# The steps are in counter/component.xml; docs/builds.md says what they are made of.

if {[auto_execok iverilog] eq ""} {
    puts "Icarus Verilog is not installed; there is nothing to show."
    return
}

set examples [file dirname [file normalize [info script]]]
set folder [file join [designs designs_path] hardware-[pid]]

# Shows a command as it would be typed, runs it, and shows its answer.
proc try {args} {
    puts "morvalen > $args"
    catch {uplevel #0 $args} answer
    puts $answer
}

# The last line that the simulation printed.
proc verdict {} {
    set stream [open [file join $::folder build Simulation counter_tb.log]]
    set lines [split [string trim [read $stream]] "\n"]
    close $stream
    return [lsearch -inline -regexp $lines {PASSED|FAILED}]
}

file copy [file join $examples counter] $folder
designs add [file join $folder component.xml]
try builds list
try builds set_active Lint
try build run
try builds set_active Simulation
try build steps list
try build run
puts [verdict]

puts "--- The counter gets a mistake, and the build fails."
set stream [open [file join $folder rtl counter.v]]
set source [read $stream]
close $stream
set stream [open [file join $folder rtl counter.v] w]
puts -nonewline $stream [string map {1'b1; 2'b10;} $source]
close $stream
try build run
try build get run_state
puts [verdict]

designs close morvalen.example.logic.counter.1.0
file delete -force $folder
