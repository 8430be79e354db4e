entity hidden is
end entity;
architecture sim of hidden is
  signal a : bit;
begin
  process
    variable a : bit;
  begin
    a := '1';
    wait;
  end process;
end architecture;
