library ieee;
use ieee.std_logic_1164.all;
entity counter is
  port (clk : in std_logic; q : out integer);
end entity;
architecture rtl of counter is
begin
  q <= undefined_thing;
  process (clk)
    variable v : integer;
  begin
    v := "text";
  end process;
end architecture;
