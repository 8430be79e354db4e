source [file join [file dirname [info script]] .. show.tcl]

show files list
designs new uart {Hardware Design}
show files
show files list
show files list rtl
show files list nowhere
show files add rtl/uart.v
show files add {rtl/odd "name" %1.v}
show files add testbench/uart_tb.v
show files add rtl/uart.v
show files add {}
show files list
show files list documents
show files contains rtl/uart.v
show files contains rtl/none.v
show files category rtl/uart.v
show files category rtl/none.v
show files set_active rtl/uart.v
show files set_active rtl/none.v
show sfile get actual_path
show files remove rtl/uart.v
show files remove rtl/uart.v
show sfile get actual_path
