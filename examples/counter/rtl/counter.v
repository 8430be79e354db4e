// Counts up to its limit and begins again.
module counter #(
    parameter WIDTH = 4,
    parameter LIMIT = 9
) (
    input  wire             clk,
    input  wire             rst_n,
    input  wire             enable,
    output reg  [WIDTH-1:0] value,
    output wire             last
);
    assign last = value == LIMIT[WIDTH-1:0];

    always @(posedge clk or negedge rst_n) begin
        if (!rst_n)
            value <= {WIDTH{1'b0}};
        else if (enable)
            value <= last ? {WIDTH{1'b0}} : value + 1'b1;
    end
endmodule
