source [file join [file dirname [info script]] .. show.tcl]

show sfile exists
designs new uart
show sfile exists
set path [file join [design get wfp] rtl uart.v]
write $path "module uart; endmodule"
files add rtl/uart.v
files set_active rtl/uart.v
show sfile
show sfile get actual_path
show sfile get category
show sfile get revision
show sfile get vcs
show sfile exists
show sfile set category HDL::SystemVerilog
show sfile get category
show sfile set actual_path rtl/other.v
show sfile get actual_path
show sfile exists
show sfile open
show sfile open now
show sfile set actual_path
