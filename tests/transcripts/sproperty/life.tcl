source [file join [file dirname [info script]] .. show.tcl]

show sproperty get name
designs new uart
show sproperty get name
properties set WIDTH int 8
properties set DEPTH int 4
properties set_active WIDTH
show sproperty
show sproperty get name
show sproperty get category
show sproperty set category Bus::Data
show sproperty get category
show sproperty set name BITS
show sproperty get name
show sproperty set name DEPTH
show sproperty get name
show sproperty set name
show sproperty property exists unit
show sproperty property get unit
show sproperty property set unit string bits
show sproperty property exists unit
show sproperty property get unit
show sproperty property set unit colour red
show sproperty property set unit
show sproperty property remove unit
show sproperty property remove unit
show properties list
