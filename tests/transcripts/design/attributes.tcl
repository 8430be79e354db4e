source [file join [file dirname [info script]] .. show.tcl]

show design
designs new uart
show design get name
show design get description
show design get id
show design get vendor
show design get library
show design get author
show design get version
show design get wfp
show design get busy
show design get read_only
show design set description "A \"serial\" port\nwith two lines: \u20ac %1"
show design get description
show design set vendor acme
show design set library cores
show design set author "Me & myself"
show design get author
show design set name uart16
show design get id
show design set name {two words}
show design set busy TRUE
show design get busy
show design set busy maybe
show design set read_only true
show design set vendor nobody
show design get vendor
show design set read_only no
show design set read_only False
show design get read_only
show design set vendor
show design set colour red
show design get colour
show design get vendor now
