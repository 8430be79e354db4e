module multi(input a, output y);
  wire w;
  assign w = a;
  assign w = ~a;
  assign y = w & nodriver;
endmodule
