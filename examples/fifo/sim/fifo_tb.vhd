-- Fills the queue, then empties it and compares.
library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;

entity fifo_tb is
end entity;

architecture test of fifo_tb is
    signal clk, rst_n, wr_en, rd_en, is_full, is_empty : std_logic := '0';
    signal wr_data, rd_data : std_logic_vector(7 downto 0) := (others => '0');
    signal done : boolean := false;
begin
    clk <= not clk after 5 ns when not done else '0';

    dut : entity work.fifo
        generic map (DATA_BITS => 8, ADDR_BITS => 2)
        port map (clk => clk, rst_n => rst_n, wr_en => wr_en, wr_data => wr_data, rd_en => rd_en,
                  rd_data => rd_data, is_full => is_full, is_empty => is_empty);

    process
    begin
        wait for 20 ns;
        rst_n <= '1';
        for i in 1 to 4 loop
            wr_data <= std_logic_vector(to_unsigned(i, 8));
            wr_en   <= '1';
            wait until rising_edge(clk);
        end loop;
        wr_en <= '0';
        wait for 1 ns;
        assert is_full = '1' report "not full after four words" severity failure;
        for i in 1 to 4 loop
            assert rd_data = std_logic_vector(to_unsigned(i, 8)) report "wrong word" severity failure;
            rd_en <= '1';
            wait until rising_edge(clk);
            wait for 1 ns;
        end loop;
        rd_en <= '0';
        assert is_empty = '1' report "not empty after four words" severity failure;
        report "PASS: four words came back";
        done <= true;
        wait;
    end process;
end architecture;
