// Counts 25 clocks and looks at every value on the way.
`timescale 1ns / 1ps
module counter_tb;
    reg        clk = 0;
    reg        rst_n = 0;
    wire [3:0] value;
    wire       last;
    integer    i;
    integer    errors = 0;

    counter #(.WIDTH(4), .LIMIT(9)) dut (
        .clk(clk), .rst_n(rst_n), .enable(1'b1), .value(value), .last(last)
    );

    always #5 clk = !clk;

    initial begin
        @(negedge clk) rst_n = 1;
        for (i = 1; i <= 25; i = i + 1) begin
            @(negedge clk);
            if (value != i % 10 || last != (i % 10 == 9))
                errors = errors + 1;
        end
        if (errors == 0)
            $display("PASSED: 25 clocks, last value %0d", value);
        else
            $display("FAILED: %0d errors", errors);
        $finish;
    end
endmodule
