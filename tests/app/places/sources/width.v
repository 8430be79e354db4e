module width(input clk, input [7:0] a, output reg [3:0] s);
  wire unused;
  always @(posedge clk) s <= a;
endmodule
