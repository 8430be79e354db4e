source [file join [file dirname [info script]] .. show.tcl]

designs new uart
show design proc_cycle
show design proc_cycle start
files add rtl/uart.v
files add rtl/fifo.v
show design proc_cycle END
show design proc_cycle stop
show design save
show design save copy.xml
show file exists copy.xml
show design save /nowhere/copy.xml
show design clean
show design clean true
show design clean maybe
show design assign_physical_wfp
show design close
show design close
