-- A queue of one clock domain: 2**ADDR_BITS words, first in, first out.
library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;

entity fifo is
    generic (
        DATA_BITS : positive := 8;
        ADDR_BITS : positive := 4
    );
    port (
        clk      : in  std_logic;
        rst_n    : in  std_logic;
        wr_en    : in  std_logic;
        wr_data  : in  std_logic_vector(DATA_BITS - 1 downto 0);
        rd_en    : in  std_logic;
        rd_data  : out std_logic_vector(DATA_BITS - 1 downto 0);
        is_full  : out std_logic;
        is_empty : out std_logic
    );
end entity;

architecture rtl of fifo is
    type memory_t is array (natural range 0 to 2 ** ADDR_BITS - 1)
        of std_logic_vector(DATA_BITS - 1 downto 0);
    signal memory  : memory_t;
    -- One bit more than an address: equal pointers mean empty, a difference in it alone means full.
    signal wr_ptr  : unsigned(ADDR_BITS downto 0);
    signal rd_ptr  : unsigned(ADDR_BITS downto 0);
    signal full_i  : std_logic;
    signal empty_i : std_logic;
begin
    empty_i <= '1' when wr_ptr = rd_ptr else '0';
    full_i  <= '1' when wr_ptr - rd_ptr = 2 ** ADDR_BITS else '0';

    is_full  <= full_i;
    is_empty <= empty_i;
    rd_data  <= memory(to_integer(rd_ptr(ADDR_BITS - 1 downto 0)));

    process (clk, rst_n)
    begin
        if rst_n = '0' then
            wr_ptr <= (others => '0');
            rd_ptr <= (others => '0');
        elsif rising_edge(clk) then
            if wr_en = '1' and full_i = '0' then
                memory(to_integer(wr_ptr(ADDR_BITS - 1 downto 0))) <= wr_data;
                wr_ptr <= wr_ptr + 1;
            end if;
            if rd_en = '1' and empty_i = '0' then
                rd_ptr <= rd_ptr + 1;
            end if;
        end if;
    end process;
end architecture;
