source [file join [file dirname [info script]] .. show.tcl]

show designs
show designs list
show designs types
show designs structures
show designs structures {Software Design}
show designs structures get_default {Hardware Design}
show designs structures set_default {Hardware Design} Flat
show designs structures get_default {Hardware Design}
show designs structures set_default {Hardware Design} None
show designs structures get_default {Garden Design}
show designs designs_path
show designs backups_path
show designs new
show designs new uart {Hardware Design}
show designs new fifo {Custom Design} Flat memories acme
show designs new uart
show designs new {two words}
show designs new x {Garden Design}
show designs new x {Custom Design} Maze
show designs list
show design get name
show designs set_active local.global.uart.1.0
show design get name
show designs set_active nobody
show designs close acme.memories.fifo.1.0 true
show file exists [file join [designs designs_path] fifo]
show designs close acme.memories.fifo.1.0
show designs close_all
show designs list
show file exists [file join [designs designs_path] uart]
