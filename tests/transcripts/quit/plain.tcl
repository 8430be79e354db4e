source [file join [file dirname [info script]] .. show.tcl]

designs new uart
files add rtl/uart.v
show quit q
