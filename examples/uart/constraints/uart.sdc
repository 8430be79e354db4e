# 50 MHz; the serial lines are asynchronous.
create_clock -name clk -period 20.0 [get_ports clk]
set_false_path -from [get_ports rxd]
set_false_path -to [get_ports txd]
