proc inner {} {
    set x 1
    error "something is wrong"
}
proc outer {} {
    inner
}
