# Opens each component, checks its files, sets a property and the author, saves and closes.
foreach component $argv {
    designs add $component
    foreach file [morvalen files] {
        if {![file exists $file]} { error "$file is missing" }
    }
    morvalen property WIDTH 64
    design set author "The release script"
    design save
    designs close [lindex [morvalen designs] 0]
}
