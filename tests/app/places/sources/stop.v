module stop;
  initial begin
    #5 $warning("nearly");
    #5 $fatal(1, "no way on");
  end
endmodule
