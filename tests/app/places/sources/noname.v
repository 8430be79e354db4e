module top(output y);
  wire z;
  missing_cell u1(.a(z), .y(y));
  assign y = nosuch;
endmodule
