entity bench is
end entity;
architecture sim of bench is
begin
  process
  begin
    wait for 10 ns;
    report "half way" severity note;
    assert false report "value is wrong" severity warning;
    assert 1 = 2 report "it ends here" severity failure;
    wait;
  end process;
end architecture;
