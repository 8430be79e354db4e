source [file join [file dirname [info script]] .. show.tcl]

show quit 1 2
catch {quit 7}
puts "never written"
