module fatal;
  reg [3:0] r;
  initial begin
    #10 r = 4'd3;
    $display("r is %d", r);
    $error("wrong value %0d", r);
    $finish;
  end
endmodule
