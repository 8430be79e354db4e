# For the scripts of this folder's folders: "show COMMAND ..." writes the command, and its result line
# by line, behind "=" when it is good and behind "!" when it is an error.
proc show {args} {
    puts "> $args"
    set failed [catch {uplevel #0 $args} text]
    foreach line [split $text \n] {
        puts "[expr {$failed ? "!" : "="}] $line"
    }
}

# The same for a list that comes in no particular order.
proc show_sorted {args} {
    puts "> $args"
    foreach element [lsort [uplevel #0 $args]] {
        puts "= $element"
    }
}

# Writes a file and the folders that it lies in.
proc write {path text} {
    file mkdir [file dirname $path]
    set file [open $path w]
    puts $file $text
    close $file
}
