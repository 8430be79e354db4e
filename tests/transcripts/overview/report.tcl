source [file join [file dirname [info script]] .. show.tcl]

show overview
designs new uart
show overview some words
files add rtl/uart.v
files add rtl/fifo.v
files set_active rtl/uart.v
folders add rtl
folders set_active rtl
properties set WIDTH int 8
properties set_active WIDTH
project new
show overview
