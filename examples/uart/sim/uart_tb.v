`timescale 1ns / 1ps
// Sends three bytes through a loop and compares what comes back.
module uart_tb;
    reg        clk = 0;
    reg        rst_n = 0;
    reg        tx_valid = 0;
    reg  [7:0] tx_data = 0;
    wire       tx_ready, rx_valid, loop;
    wire [7:0] rx_data;
    reg  [7:0] expected [0:2];
    integer    sent = 0;
    integer    received = 0;

    uart #(.CLOCK_HZ(1600), .BAUD_RATE(100)) dut (
        .clk(clk), .rst_n(rst_n), .tx_valid(tx_valid), .tx_data(tx_data), .tx_ready(tx_ready),
        .rx_valid(rx_valid), .rx_data(rx_data), .rxd(loop), .txd(loop)
    );

    always #5 clk = ~clk;

    always @(posedge clk) begin
        tx_valid <= 1'b0;
        if (rst_n && tx_ready && !tx_valid && sent < 3) begin
            tx_data  <= expected[sent];
            tx_valid <= 1'b1;
            sent     <= sent + 1;
        end
        if (rx_valid) begin
            if (rx_data !== expected[received])
                $display("FAIL: byte %0d is %h, not %h", received, rx_data, expected[received]);
            received <= received + 1;
            if (received == 2) begin
                $display("PASS: three bytes came back");
                $finish;
            end
        end
    end

    initial begin
        expected[0] = 8'h55;
        expected[1] = 8'h00;
        expected[2] = 8'hc3;
        #100 rst_n = 1;
        #100000 $display("FAIL: only %0d bytes came back", received);
        $finish;
    end
endmodule
