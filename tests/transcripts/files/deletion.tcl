source [file join [file dirname [info script]] .. show.tcl]

designs new uart
cd [design get wfp]
foreach name {a b c d} {
    write $name.v "module $name; endmodule"
    files add $name.v
}
show files delete a.v
show file exists a.v
show files delete a.v
file delete b.v
show files delete b.v
show files delete_all
show files list
show files remove_all
show files delete_all
show files delete_all nowhere
show files remove_all nowhere
show files list
show lsort [glob -nocomplain *.v]
