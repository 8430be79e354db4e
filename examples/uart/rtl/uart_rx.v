// Receives one byte: looks at the middle of each bit and gives the byte out for one clock when the
// stop bit is right.
module uart_rx #(
    parameter CLOCKS_PER_BIT = 434,
    parameter DATA_BITS = 8
) (
    input  wire                 clk,
    input  wire                 rst_n,
    input  wire                 rxd,
    output reg                  valid,
    output reg  [DATA_BITS-1:0] data
);
    reg [1:0]  sync;
    reg [3:0]  bits_left;
    reg [15:0] clocks_left;

    wire line = sync[1];

    always @(posedge clk or negedge rst_n)
        if (!rst_n) begin
            sync        <= 2'b11;
            bits_left   <= 0;
            clocks_left <= 0;
            valid       <= 1'b0;
            data        <= 0;
        end else begin
            sync  <= {sync[0], rxd};
            valid <= 1'b0;
            if (bits_left == 0) begin
                if (!line) begin
                    bits_left   <= DATA_BITS + 1;
                    clocks_left <= CLOCKS_PER_BIT + CLOCKS_PER_BIT / 2 - 1;
                end
            end else if (clocks_left != 0) begin
                clocks_left <= clocks_left - 1;
            end else begin
                bits_left   <= bits_left - 1;
                clocks_left <= CLOCKS_PER_BIT - 1;
                if (bits_left == 1)
                    valid <= line;
                else
                    data <= {line, data[DATA_BITS-1:1]};
            end
        end
endmodule
