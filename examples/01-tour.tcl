# A tour of the main job: make designs, open components, see what is open, close again.
#
#     morvalen --batch examples/01-tour.tcl
#
# It works on copies inside the session folder and takes them away at its end.

set examples [file dirname [file normalize [info script]]]
set folder [file join [designs designs_path] tour-[pid]]
set name blinker_[pid]

# Shows a command as it would be typed, runs it, and shows its answer. A blank line is written as
# " ": in the console an empty text counts as the end of a line and would swallow the next one.
proc try {args} {
    puts " "
    puts "morvalen > $args"
    set answer [uplevel #0 $args]
    if {$answer ne ""} { puts $answer }
    return $answer
}

proc chapter {text} {
    puts " "
    puts "--- $text"
}

puts "A tour of Morvalen: what one types, and what it answers."
file mkdir $folder
file copy [file join $examples uart] [file join $examples fifo] $folder

chapter "Every design has a type, and a structure for its files."
try designs types
try designs structures "Hardware Design"

chapter "A new design gets a folder of its own, and a component file in it."
try designs new $name "Hardware Design"
set new [lindex [designs list] end]
try files add [file join [designs designs_path] $name rtl blinker.v]
try design save

chapter "Components of other tools are opened where they lie."
set fifo [file join $folder fifo component.xml]
try designs add [file join $folder uart component.xml]
try designs add $fifo

chapter "All of them are open now, in the order of opening; commands work on the active one."
try designs list
try designs set_active morvalen.example.serial.uart.1.2

try files list rtl
try design get description

chapter "Closing a design saves it. What nobody changed keeps every byte."
try designs close morvalen.example.memory.fifo.2.0.1
puts "[file size $fifo] bytes now, [file size [file join $examples fifo component.xml]] before"

chapter "The tour cleans up: its own design goes with its folder, the rest is only closed."
try designs close $new true
try designs close morvalen.example.serial.uart.1.2
file delete -force $folder
puts "Designs still open: [llength [designs list]]. That was the tour."
